/// The table of controls.
#include "simulator/window/Controls.h"

#include "facts/AudioNames.h"
#include "facts/PublicNames.h"

#include <algorithm>
#include <array>

namespace panotra::sim {

namespace {

template <Button button> constexpr Control volumeButton(const char* key, const char* cap, const char* label)
{
    return { "Volume buttons", key, cap, label, [](Phone& phone) { return phone.press(button); },
        [](Phone& phone) { return phone.release(button); }, [](const Phone& phone) { return phone.isHeld(button); },
        nullptr, false, &mixerSetting("replaceHUD") };
}

// What a control does is a plain function: it knows its name by the place in these tables.
constexpr std::array routes { route::speaker, route::receiver, route::headphone, route::headset, route::headphonesBT,
    route::headsetBT };
constexpr std::array listeners { listener::present, listener::dismiss, listener::toggle };

template <std::size_t route> constexpr Control routeControl(const char* key, const char* label)
{
    constexpr const char* name = routes[route];
    return { "Audio route", key, key, label, [](Phone& phone) { return phone.useRoute(name); }, nullptr,
        [](const Phone& phone) { return phone.isActive(name); },
        [](const Phone& phone) -> std::string { return phone.isPluggedIn(name) ? "plugged in" : ""; }, true };
}

template <std::size_t listener> constexpr Control gestureControl(const char* key, const char* label)
{
    return { "Gestures", key, key, label, [](Phone& phone) { return phone.sendGesture(listeners[listener]); }, nullptr,
        nullptr, nullptr };
}

constexpr std::array controls {
    volumeButton<Button::Up>("Up", "\u2191", "Volume up"),
    volumeButton<Button::Down>("Down", "\u2193", "Volume down"),

    Control { "Phone", "M", "M", "Ringer switch", [](Phone& phone) { return phone.switchRinger(); }, nullptr,
        [](const Phone& phone) { return phone.isRingerMuted(); },
        [](const Phone& phone) -> std::string {
            return phone.isRingerMuted() ? "silent" : "ring";
        } },
    Control { "Phone", "S", "S", "Shake", [](Phone& phone) { return phone.shake(); }, nullptr, nullptr, nullptr, false,
        &mixerSetting("handleShake") },
    Control { "Phone", "R", "R", "Rotate", [](Phone& phone) { return phone.turn(); }, nullptr, nullptr,
        [](const Phone& phone) {
            return phone.orientation();
        } },
    Control { "Phone", "L", "L", "Screen", [](Phone& phone) { return phone.switchScreen(); }, nullptr, nullptr,
        [](const Phone& phone) -> std::string {
            return phone.isScreenOn() ? "on" : "off";
        } },

    routeControl<0>("1", "Speaker"),
    routeControl<1>("2", "Receiver"),
    routeControl<2>("3", "Headphones"),
    routeControl<3>("4", "Headset"),
    routeControl<4>("5", "Headphones BT"),
    routeControl<5>("6", "Headset BT"),

    Control { "Sound", "C", "C", "Category", [](Phone& phone) { return phone.nextCategory(); }, nullptr, nullptr,
        [](const Phone& phone) { return phone.category(); }, true },
    Control { "Sound", "P", "P", "Phone call", [](Phone& phone) { return phone.beginOrEndCall(); }, nullptr,
        [](const Phone& phone) { return phone.isInCall(); },
        [](const Phone& phone) -> std::string { return phone.isInCall() ? "in a call" : ""; }, true },
    Control { "Sound", "N", "N", "Notification", [](Phone& phone) { return phone.playNotificationSound(); }, nullptr,
        nullptr, nullptr },

    gestureControl<0>("G", "Present mixer"),
    gestureControl<1>("D", "Dismiss mixer"),
    gestureControl<2>("T", "Present or dismiss"),
};

} // namespace

std::span<const Control> allControls()
{
    return controls;
}

const Control* findControl(std::string_view key)
{
    const auto found = std::ranges::find(controls, key, &Control::key);
    return found == controls.end() ? nullptr : &*found;
}

} // namespace panotra::sim
