/// The known picture, by XCB; the mouse, by xdotool.
#include "tests/overlay/OverlayDesk.h"

#include "facts/PublicNames.h"
#include "simulator/LinkedLibrary.h"
#include "simulator/device/HomeScreen.h"
#include "simulator/device/Preferences.h"
#include "simulator/device/RunLoop.h"
#include "simulator/device/SoundService.h"
#include "tests/support/PictureComparison.h"

#include <xcb/xcb.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <stdexcept>
#include <thread>

namespace panotra::testing {

using render::Bitmap;
using render::PixelRect;

namespace {

struct FreeReply {
    void operator()(void* reply) const { std::free(reply); }
};

/// Longer than any machine takes, and shorter than what the test may take as a whole.
constexpr std::chrono::seconds longest { 60 };

} // namespace

std::uint32_t KnownBackground::pixelAt(int x, int y)
{
    const auto across = static_cast<std::uint32_t>(x);
    const auto down = static_cast<std::uint32_t>(y);
    if ((x / 80 + y / 60) % 4 == 0)
        return 0xf0c85a;
    return (40 + across / 5) << 16 | (60 + down / 6) << 8 | (200 - across / 8);
}

KnownBackground::KnownBackground()
    : m_connection(xcb_connect(nullptr, nullptr))
    , m_window(xcb_generate_id(m_connection))
{
    const xcb_screen_t& screen = *xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data;
    const std::uint16_t width = screen.width_in_pixels;
    const std::uint16_t height = screen.height_in_pixels;
    const std::uint32_t picture = xcb_generate_id(m_connection);
    xcb_create_pixmap(m_connection, screen.root_depth, picture, screen.root, width, height);
    const std::uint32_t context = xcb_generate_id(m_connection);
    xcb_create_gc(m_connection, context, picture, 0, nullptr);
    std::vector<std::uint32_t> row(width);
    for (std::uint16_t y = 0; y < height; ++y) {
        for (std::uint16_t x = 0; x < width; ++x)
            row[x] = pixelAt(x, y);
        xcb_put_image(m_connection, XCB_IMAGE_FORMAT_Z_PIXMAP, picture, context, width, 1, 0,
            static_cast<std::int16_t>(y), 0, screen.root_depth, static_cast<std::uint32_t>(row.size() * sizeof row[0]),
            reinterpret_cast<const std::uint8_t*>(row.data()));
    }
    const std::uint32_t values[] = { picture, 1, XCB_EVENT_MASK_BUTTON_PRESS };
    xcb_create_window(m_connection, screen.root_depth, m_window, screen.root, 0, 0, width, height, 0,
        XCB_WINDOW_CLASS_INPUT_OUTPUT, screen.root_visual,
        XCB_CW_BACK_PIXMAP | XCB_CW_OVERRIDE_REDIRECT | XCB_CW_EVENT_MASK, values);
    xcb_map_window(m_connection, m_window);
    focus();
}

KnownBackground::~KnownBackground()
{
    xcb_disconnect(m_connection);
}

/// What was asked of the server before has been done when it answers.
void KnownBackground::focus() const
{
    xcb_set_input_focus(m_connection, XCB_INPUT_FOCUS_POINTER_ROOT, m_window, XCB_CURRENT_TIME);
    std::free(xcb_get_input_focus_reply(m_connection, xcb_get_input_focus(m_connection), nullptr));
}

int KnownBackground::presses()
{
    std::free(xcb_get_input_focus_reply(m_connection, xcb_get_input_focus(m_connection), nullptr));
    int count = 0;
    while (const auto event = std::unique_ptr<xcb_generic_event_t, FreeReply>(xcb_poll_for_event(m_connection))) {
        if ((event->response_type & 0x7f) == XCB_BUTTON_PRESS)
            ++count;
    }
    return count;
}

OverlayDesk::OverlayDesk()
{
    std::filesystem::remove_all(folder);
    std::filesystem::create_directories(folder);
    const auto complain = [this](const std::string& line) {
        complaints.push_back(line);
    };
    std::string failure;
    auto renderer = sim::Overlay::prepare(complain, failure);
    if (renderer == nullptr)
        throw std::runtime_error(failure);
    phone.emplace(sim::DesktopPhone::Setup { .preferencesFolder = folder,
                      .resourceFolder = PANOTRA_BUNDLE,
                      .screen = sim::overlayScreen,
                      .isSeen = true,
                      .complain = complain },
        sim::loadedLibrary());
    overlay.emplace(*phone, std::move(renderer), complain);
    mouse("mousemove 5 300");
}

void OverlayDesk::set(const char* key, const sim::Json& value)
{
    phone->device().preferences->set(ownDomain, key, value);
    phone->device().home->notify(notification::ownSettingsChanged);
    phone->device().runLoop->turn();
}

void OverlayDesk::present()
{
    phone->device().home->sendActivatorEvent(listener::present);
    phone->device().runLoop->turn();
}

void OverlayDesk::goOn()
{
    phone->follow();
    pause = overlay->turn();
    std::this_thread::sleep_for(std::chrono::milliseconds(4));
}

void OverlayDesk::goOnUntil(const char* what, const std::function<bool()>& isSo)
{
    const auto end = std::chrono::steady_clock::now() + longest;
    do {
        if (std::chrono::steady_clock::now() > end)
            throw std::runtime_error(std::string("waited in vain for ") + what);
        goOn();
    } while (!isSo());
}

/// Drawn, and nothing moves any more: then the overlay waits for the display.
bool OverlayDesk::isAtRest()
{
    return pause && pause->longest < 0 && pause->descriptor >= 0;
}

bool OverlayDesk::isShown()
{
    return pause && (pause->longest >= 0 || pause->descriptor >= 0);
}

Bitmap OverlayDesk::screen() const
{
    return server->read({ 0, 0, width, height });
}

PixelRect OverlayDesk::changedPart(const Bitmap& screen)
{
    PixelRect part;
    for (int y = 0; y < screen.height(); ++y) {
        for (int x = 0; x < screen.width(); ++x) {
            if ((screen.row(y)[static_cast<std::size_t>(x)] & 0xffffff) != KnownBackground::pixelAt(x, y))
                part = united(part, { x, y, 1, 1 });
        }
    }
    return part;
}

void OverlayDesk::expectPicture(const char* name, const Bitmap& screen, const PixelRect& part) const
{
    Bitmap found(part.width, part.height, render::PixelFormat::Opaque);
    for (int y = 0; y < part.height; ++y) {
        const auto row = screen.row(part.y + y);
        std::copy_n(row.begin() + part.x, part.width, found.row(y).begin());
    }
    found.markChanged();
    const std::string file = std::string(name) + ".png";
    std::string failure = "it cannot be read";
    const Bitmap expected = render::readPng(PANOTRA_PICTURES "/" + file, failure);
    const auto difference = expected.isEmpty() ? std::optional(failure) : firstDifference(expected, found);
    const std::string kept = "overlay-found-" + file;
    std::filesystem::remove(kept);
    if (difference) {
        writePng(found, kept);
        ADD_FAILURE() << file << ": " << *difference << "; what was found is in " << kept;
    }
}

void OverlayDesk::mouse(const std::string& acts)
{
    if (std::system(("xdotool " + acts).c_str()) != 0) // NOLINT: it is told by nobody but the tests
        throw std::runtime_error("xdotool " + acts);
}

float OverlayDesk::levelOf(const char* category) const
{
    return const_cast<sim::DesktopPhone&>(*phone).device().sound->level(category);
}

} // namespace panotra::testing
