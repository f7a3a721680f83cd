/// XCB: a connection of our own, for as long as the questions take.
#include "simulator/desktop/X11Server.h"

#include <xcb/xcb.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string_view>
#include <vector>

namespace panotra::sim {

using render::Bitmap;
using render::PixelRect;

namespace {

struct FreeReply {
    void operator()(void* reply) const { std::free(reply); } // NOLINT: XCB's replies come from malloc
};
template <typename Reply> using ReplyOf = std::unique_ptr<Reply, FreeReply>;

const xcb_screen_t* screenOf(xcb_connection_t* connection, int number)
{
    auto screens = xcb_setup_roots_iterator(xcb_get_setup(connection));
    while (screens.rem > 0 && number-- > 0)
        xcb_screen_next(&screens);
    return screens.rem > 0 ? screens.data : nullptr;
}

template <typename Visit> void forEachVisual(const xcb_screen_t& screen, Visit visit)
{
    for (auto depths = xcb_screen_allowed_depths_iterator(&screen); depths.rem > 0; xcb_depth_next(&depths)) {
        for (auto visuals = xcb_depth_visuals_iterator(depths.data); visuals.rem > 0; xcb_visualtype_next(&visuals))
            visit(depths.data->depth, *visuals.data);
    }
}

/// Red, green and blue where our bitmaps have them.
bool isOurs(const xcb_visualtype_t& visual)
{
    return visual._class == XCB_VISUAL_CLASS_TRUE_COLOR && visual.red_mask == 0xff0000 && visual.green_mask == 0xff00
        && visual.blue_mask == 0xff;
}

bool hasOurPixels(const xcb_setup_t* setup, const xcb_screen_t& screen)
{
    bool isLikeOurs = false;
    forEachVisual(screen, [&](int, const xcb_visualtype_t& visual) {
        isLikeOurs = isLikeOurs || (visual.visual_id == screen.root_visual && isOurs(visual));
    });
    const auto* const formats = xcb_setup_pixmap_formats(setup);
    const bool isWide = std::any_of(formats, formats + xcb_setup_pixmap_formats_length(setup), [&screen](auto& format) {
        return format.depth == screen.root_depth && format.bits_per_pixel == 32 && format.scanline_pad == 32;
    });
    return isLikeOurs && isWide && setup->image_byte_order == XCB_IMAGE_ORDER_LSB_FIRST;
}

} // namespace

std::unique_ptr<X11Server> X11Server::connect()
{
    std::unique_ptr<X11Server> server(new X11Server);
    server->m_connection = xcb_connect(nullptr, &server->m_screen);
    if (xcb_connection_has_error(server->m_connection) != 0
        || screenOf(server->m_connection, server->m_screen) == nullptr)
        return nullptr;
    return server;
}

X11Server::~X11Server()
{
    xcb_disconnect(m_connection);
}

std::string X11Server::translucentVisual() const
{
    std::string name;
    if (!isComposited())
        return name;
    constexpr int depthWithAlpha = 32;
    forEachVisual(*screenOf(m_connection, m_screen), [&name](int depth, const xcb_visualtype_t& visual) {
        if (name.empty() && depth == depthWithAlpha && isOurs(visual))
            name = std::to_string(visual.visual_id);
    });
    return name;
}

/// Whoever composes the windows of a screen owns the selection that is named for it.
bool X11Server::isComposited() const
{
    const std::string name = "_NET_WM_CM_S" + std::to_string(m_screen);
    const auto asked = xcb_intern_atom(m_connection, 1, static_cast<std::uint16_t>(name.size()), name.c_str());
    const ReplyOf<xcb_intern_atom_reply_t> atom(xcb_intern_atom_reply(m_connection, asked, nullptr));
    if (atom == nullptr || atom->atom == XCB_ATOM_NONE)
        return false;
    const auto askedOwner = xcb_get_selection_owner(m_connection, atom->atom);
    const ReplyOf<xcb_get_selection_owner_reply_t> owner(
        xcb_get_selection_owner_reply(m_connection, askedOwner, nullptr));
    return owner != nullptr && owner->owner != XCB_NONE;
}

bool X11Server::isWithinWayland() const
{
    if (std::getenv("WAYLAND_DISPLAY") != nullptr)
        return true;
    constexpr std::string_view name = "XWAYLAND";
    const auto asked = xcb_query_extension(m_connection, static_cast<std::uint16_t>(name.size()), name.data());
    const ReplyOf<xcb_query_extension_reply_t> extension(xcb_query_extension_reply(m_connection, asked, nullptr));
    return extension != nullptr && extension->present != 0;
}

Bitmap X11Server::read(const PixelRect& area) const
{
    const xcb_screen_t& screen = *screenOf(m_connection, m_screen);
    const PixelRect seen = intersection(area, { 0, 0, screen.width_in_pixels, screen.height_in_pixels });
    if (seen.isEmpty() || isWithinWayland() || !hasOurPixels(xcb_get_setup(m_connection), screen))
        return {};
    const auto asked = xcb_get_image(m_connection, XCB_IMAGE_FORMAT_Z_PIXMAP, screen.root,
        static_cast<std::int16_t>(seen.x), static_cast<std::int16_t>(seen.y), static_cast<std::uint16_t>(seen.width),
        static_cast<std::uint16_t>(seen.height), ~std::uint32_t { 0 });
    const ReplyOf<xcb_get_image_reply_t> image(xcb_get_image_reply(m_connection, asked, nullptr));
    const auto rowSize = static_cast<std::size_t>(seen.width) * sizeof(std::uint32_t);
    if (image == nullptr
        || static_cast<std::size_t>(xcb_get_image_data_length(image.get()))
            < rowSize * static_cast<std::size_t>(seen.height))
        return {};
    Bitmap bitmap(area.width, area.height, render::PixelFormat::Opaque);
    if (bitmap.isEmpty())
        return bitmap;
    const std::uint8_t* from = xcb_get_image_data(image.get());
    for (int y = 0; y < seen.height; ++y, from += rowSize)
        std::memcpy(bitmap.row(seen.y - area.y + y).data() + (seen.x - area.x), from, rowSize);
    bitmap.markChanged();
    return bitmap;
}

std::optional<X11Server::Pointer> X11Server::pointer() const
{
    const auto asked = xcb_query_pointer(m_connection, screenOf(m_connection, m_screen)->root);
    const ReplyOf<xcb_query_pointer_reply_t> reply(xcb_query_pointer_reply(m_connection, asked, nullptr));
    if (reply == nullptr || reply->same_screen == 0)
        return std::nullopt;
    static_assert(leftButton == XCB_BUTTON_MASK_1);
    constexpr std::uint32_t buttons = XCB_BUTTON_MASK_1 | XCB_BUTTON_MASK_2 | XCB_BUTTON_MASK_3;
    return Pointer { reply->mask & buttons, reply->root_x, reply->root_y };
}

std::uint32_t X11Server::focus() const
{
    const ReplyOf<xcb_get_input_focus_reply_t> focus(
        xcb_get_input_focus_reply(m_connection, xcb_get_input_focus(m_connection), nullptr));
    return focus == nullptr ? static_cast<std::uint32_t>(XCB_NONE) : focus->focus;
}

void X11Server::restoreFocus(std::uint32_t before) const
{
    if (before == focus())
        return;
    xcb_set_input_focus(m_connection, XCB_INPUT_FOCUS_POINTER_ROOT, before, XCB_CURRENT_TIME);
    static_cast<void>(focus()); // the server has done it by the time that it answers
}

} // namespace panotra::sim
