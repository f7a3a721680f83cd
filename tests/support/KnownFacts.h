/// What tests know of slots, skins, settings and names by themselves: written by hand, and never read from the tables
/// that it proves.
#pragma once

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <string_view>
#include <vector>

namespace panotra::testing {

/// The slot that takes the pair of category and route. A category whose route does not matter has a null route.
struct KnownPair {
    std::uint8_t slot;
    const char* category;
    const char* route;
};

inline constexpr KnownPair knownPairs[] = {
    { 11, "Audio/Video", "Receiver" },
    { 0, "Audio/Video", "Speaker" },
    { 1, "Audio/Video", "Headphone" },
    { 1, "Audio/Video", "Headset" },
    { 2, "Audio/Video", "HeadphonesBT" },
    { 2, "Audio/Video", "HeadsetBT" },
    { 3, "PhoneCall", "Receiver" },
    { 4, "PhoneCall", "Speaker" },
    { 5, "PhoneCall", "Headphone" },
    { 5, "PhoneCall", "Headset" },
    { 6, "PhoneCall", "HeadphonesBT" },
    { 6, "PhoneCall", "HeadsetBT" },
    { 7, "Ringtone", nullptr },
    { 8, "Alarm", nullptr },
    { 9, "Notifications", nullptr },
    { 10, "VoiceCommand", nullptr },
};

/// A slot and its slider, in the order in which sliders are made.
struct KnownSlider {
    std::uint8_t slot;
    const char* key;
    const char* seed; ///< the category whose level stands in
    int group;
    const char* name;
    const char* image;
    bool canGoToZero;
};

inline constexpr KnownSlider knownSliders[] = {
    { 11, "volume11", "Audio/Video", 0, "Receiver", "receiver", true },
    { 0, "volume0", "Audio/Video", 0, "Speaker", "speaker", true },
    { 1, "volume1", "Audio/Video", 0, "Headphones", "headphone", true },
    { 2, "volume2", "Audio/Video", 0, "HeadphonesBT", "headphonebt", true },
    { 3, "volume3", "PhoneCall", 1, "Receiver", "receiver", false },
    { 4, "volume4", "PhoneCall", 1, "Speaker", "speaker", false },
    { 5, "volume5", "PhoneCall", 1, "Headset", "headset", false },
    { 6, "volume6", "PhoneCall", 1, "HeadsetBT", "headsetbt", false },
    { 7, "volume7", "Ringtone", 2, "Ringtone", "ringer", false },
    { 8, "volume8", "Alarm", 2, "Alarm", "alarm", false },
    { 9, "volume9", "Ringtone", 2, "Notifications", "notification", false },
    { 10, "volume10", "VoiceCommand", 2, "Siri", "siri", false },
};

inline constexpr std::size_t knownSlotCount = std::size(knownSliders);

/// The slots of a group, in the order of their cells.
inline std::vector<std::uint8_t> slotsOfGroup(int group)
{
    std::vector<std::uint8_t> slots;
    for (const KnownSlider& slider : knownSliders) {
        if (slider.group == group)
            slots.push_back(slider.slot);
    }
    return slots;
}

struct KnownColor {
    double red, green, blue, alpha;
};

struct KnownSkin {
    std::uint16_t number;
    const char* name;
    KnownColor border;
    int backdropStyle;
    KnownColor text;
    bool isBlack;
};

inline constexpr KnownSkin knownSkins[] = {
    { 0, "Light", { 0.2, 0.2, 0.2, 0.15 }, 2010, { 0, 0, 0, 1 }, false },
    { 1, "Dark", { 0.8, 0.8, 0.8, 0.15 }, 1001, { 0.9, 0.9, 0.9, 0.9 }, false },
    { 2, "Darker", { 1, 1, 1, 0.15 }, 2050, { 1, 1, 1, 0.9 }, false },
    { 3, "Black", { 1, 1, 1, 0.25 }, -2, { 1, 1, 1, 1 }, true },
};

/// Numbers that no skin has.
inline constexpr std::uint16_t numbersWithoutSkin[] = { std::size(knownSkins), 65535 };

/// A setting, in the order of reading.
struct KnownSetting {
    const char* key;
    const char* value; ///< the name of the process-wide value
    const char* domain;
    const char* notification;
    double absent;
};

inline constexpr KnownSetting knownSettings[] = {
    { "activeStyle", "activeStyle", "net.qorvath.panotra", "net.qorvath.panotra.settingschanged", 0 },
    { "mixerSkin", "mixerSkin", "net.qorvath.panotra", "net.qorvath.panotra.settingschanged", 0 },
    { "replaceHUD", "replaceHUD", "net.qorvath.panotra", "net.qorvath.panotra.settingschanged", 0 },
    { "scale", "scale", "net.qorvath.panotra", "net.qorvath.panotra.settingschanged", 0.875 },
    { "dismissOnTouch", "dismissOnTouch", "net.qorvath.panotra", "net.qorvath.panotra.settingschanged", 0 },
    { "isAppCallNotification", "isAppCallNotification", "net.qorvath.panotra", "net.qorvath.panotra.settingschanged",
        0 },
    { "handleShake", "handleShake", "net.qorvath.panotra", "net.qorvath.panotra.settingschanged", 0 },
    { "dismissDelay", "autoDismiss", "net.qorvath.brevane2", "net.qorvath.brevane2.settingschanged", 2 },
};

inline constexpr std::string_view knownCategories[]
    = { "Audio/Video", "PhoneCall", "Ringtone", "Alarm", "Notifications", "VoiceCommand" };
inline constexpr std::string_view knownListeners[] = { "net.qorvath.panotra.presentmixer",
    "net.qorvath.panotra.dismissmixer", "net.qorvath.panotra.presentdismissmixer" };

} // namespace panotra::testing
