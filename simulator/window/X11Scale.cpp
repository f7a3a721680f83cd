/// Asks the X server for its resources, a property of the root window, and makes a scale of them.
#include "simulator/window/X11Scale.h"

#include <xcb/xcb.h>

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <string>

namespace panotra::sim {

namespace {

struct Disconnect {
    void operator()(xcb_connection_t* connection) const { xcb_disconnect(connection); }
};
struct FreeReply {
    void operator()(void* reply) const { std::free(reply); }
};

std::string resourcesOfServer()
{
    constexpr std::uint32_t mostWords = 16384;
    int number = 0;
    const std::unique_ptr<xcb_connection_t, Disconnect> connection(xcb_connect(nullptr, &number));
    if (connection == nullptr || xcb_connection_has_error(connection.get()) != 0)
        return {};
    // The resources are those of the server, on its first screen.
    const xcb_screen_iterator_t screens = xcb_setup_roots_iterator(xcb_get_setup(connection.get()));
    if (screens.rem == 0)
        return {};
    const auto question = xcb_get_property(
        connection.get(), 0, screens.data->root, XCB_ATOM_RESOURCE_MANAGER, XCB_ATOM_STRING, 0, mostWords);
    const std::unique_ptr<xcb_get_property_reply_t, FreeReply> reply(
        xcb_get_property_reply(connection.get(), question, nullptr));
    if (reply == nullptr)
        return {};
    return { static_cast<const char*>(xcb_get_property_value(reply.get())),
        static_cast<std::size_t>(xcb_get_property_value_length(reply.get())) };
}

} // namespace

double scaleOfX11()
{
    constexpr double plain = 96;
    constexpr double least = 1;
    constexpr double most = 4;
    const auto dots = dotsAnInch(resourcesOfServer());
    return dots ? std::clamp(*dots / plain, least, most) : 1;
}

} // namespace panotra::sim
