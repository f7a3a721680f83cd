/// The twelve volume slots: which pair of audio category and route each one remembers, and everything else that
/// is known of a slot without a host. Setter, getter, focus, seeds, view tree and drags all read this table.
#pragma once

#include "facts/AudioNames.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace panotra {

inline constexpr std::size_t volumeSlotCount = 12;

/// A slot's number: its field (`_volumeView0` …), its slider's tag and its preference key carry it.
using SlotNumber = std::uint8_t;

/// Answered for a pair that no slot remembers.
inline constexpr SlotNumber noSlot = 0xff;

/// The group of the mixer in which a slot's slider stands.
enum class Group : std::uint8_t { Media, PhoneCall, Extras };
inline constexpr std::size_t groupCount = 3;

/// The place of a slider in its group: reading order of the grid, top to bottom of the column.
using Cell = std::uint8_t;
inline constexpr std::size_t cellsPerGroup = 4;

struct VolumeSlot {
    SlotNumber number;
    const char* category;
    /// The one or two routes of the slot; both null where the route does not matter.
    std::array<const char*, 2> routes;
    const char* preferenceKey;
    /// The platform category whose level stands in while nothing is remembered.
    const char* seedCategory;

    Group group;
    Cell cell;
    /// Caption of the named slider (centred panel).
    const char* name;
    /// Base name of the icon slider's image (banner).
    const char* image;
    /// Whether a drag may take the level to zero; else it stops at one sixteenth.
    bool canGoToZero;

    // The deliberate differences between the users of the map.

    /// False: the setter does not know the pair and stores nothing for it.
    bool setterKnowsIt;
    /// The slot whose slider swells when this pair's level changes.
    SlotNumber focusSlot;
    /// False: a drag only remembers the level and never touches the system's.
    bool dragSetsSystemVolume;
    /// The slot whose level the banner lays the slider out with: its own, but for slider 6, which is given slider 5's.
    /// The remembered level arrives right after.
    SlotNumber bannerLevelSlot;

    constexpr bool isForAnyRoute() const { return routes[0] == nullptr; }
};

/// In the order of resolution, which is also the order in which sliders are created: media through the earpiece
/// comes first although it bears the highest number.
inline constexpr std::array<VolumeSlot, volumeSlotCount> volumeSlots { {
    // clang-format off
    //    category                 routes                                     key         seeded from              group             cell name           image           zero   setter focus drag  banner
    { 11, category::audioVideo,    { route::receiver, nullptr },              "volume11", category::audioVideo,    Group::Media,     0, "Receiver",      "receiver",     true,  true,  11, true,  11 },
    { 0,  category::audioVideo,    { route::speaker, nullptr },               "volume0",  category::audioVideo,    Group::Media,     1, "Speaker",       "speaker",      true,  true,  0,  true,  0 },
    { 1,  category::audioVideo,    { route::headphone, route::headset },      "volume1",  category::audioVideo,    Group::Media,     2, "Headphones",    "headphone",    true,  true,  1,  true,  1 },
    { 2,  category::audioVideo,    { route::headphonesBT, route::headsetBT }, "volume2",  category::audioVideo,    Group::Media,     3, "HeadphonesBT",  "headphonebt",  true,  true,  2,  true,  2 },
    { 3,  category::phoneCall,     { route::receiver, nullptr },              "volume3",  category::phoneCall,     Group::PhoneCall, 0, "Receiver",      "receiver",     false, true,  3,  true,  3 },
    { 4,  category::phoneCall,     { route::speaker, nullptr },               "volume4",  category::phoneCall,     Group::PhoneCall, 1, "Speaker",       "speaker",      false, true,  4,  true,  4 },
    { 5,  category::phoneCall,     { route::headphone, route::headset },      "volume5",  category::phoneCall,     Group::PhoneCall, 2, "Headset",       "headset",      false, true,  5,  true,  5 },
    { 6,  category::phoneCall,     { route::headphonesBT, route::headsetBT }, "volume6",  category::phoneCall,     Group::PhoneCall, 3, "HeadsetBT",     "headsetbt",    false, true,  6,  true,  5 },
    { 7,  category::ringtone,      { nullptr, nullptr },                      "volume7",  category::ringtone,      Group::Extras,    0, "Ringtone",      "ringer",       false, true,  7,  true,  7 },
    { 8,  category::alarm,         { nullptr, nullptr },                      "volume8",  category::alarm,         Group::Extras,    1, "Alarm",         "alarm",        false, true,  8,  true,  8 },
    // Notifications stand apart on purpose: seeded from the ringer, unknown to the setter, and it is the alarm's
    // slider that swells for them.
    { 9,  category::notifications, { nullptr, nullptr },                      "volume9",  category::ringtone,      Group::Extras,    2, "Notifications", "notification", false, false, 8,  false, 9 },
    { 10, category::voiceCommand,  { nullptr, nullptr },                      "volume10", category::voiceCommand,  Group::Extras,    3, "Siri",          "siri",         false, true,  10, true,  10 },
    // clang-format on
} };

/// The row of the slot with that number.
constexpr const VolumeSlot& volumeSlot(SlotNumber number)
{
    return volumeSlots[number == 11 ? 0 : static_cast<std::size_t>(number) + 1];
}

static_assert(
    [] {
        for (SlotNumber number = 0; number < volumeSlotCount; ++number) {
            if (volumeSlot(number).number != number)
                return false;
        }
        return true;
    }(),
    "every slot has its row");

/// The pairs of a slot's row with the lengths of their names, which tell most of them apart.
struct SlotPairs {
    std::string_view category;
    std::array<std::string_view, 2> routes; ///< empty for none

    constexpr bool take(std::string_view audioCategory, std::string_view activeRoute) const
    {
        if (audioCategory != category)
            return false;
        return routes[0].empty() || activeRoute == routes[0] || (!routes[1].empty() && activeRoute == routes[1]);
    }
};

inline constexpr auto slotPairs = [] {
    std::array<SlotPairs, volumeSlotCount> pairs {};
    for (std::size_t row = 0; row < pairs.size(); ++row) {
        const VolumeSlot& slot = volumeSlots[row];
        pairs[row].category = slot.category;
        for (std::size_t route = 0; route < slot.routes.size(); ++route) {
            if (slot.routes[route] != nullptr)
                pairs[row].routes[route] = slot.routes[route];
        }
    }
    return pairs;
}();

/// The row of the first slot that takes the pair, null for none. An empty view stands for a null string.
constexpr const VolumeSlot* findVolumeSlot(std::string_view audioCategory, std::string_view activeRoute)
{
    for (std::size_t row = 0; row < volumeSlots.size(); ++row) {
        if (slotPairs[row].take(audioCategory, activeRoute))
            return &volumeSlots[row];
    }
    return nullptr;
}

/// The getter's slot: notifications included.
constexpr SlotNumber slotToRead(std::string_view audioCategory, std::string_view activeRoute)
{
    const VolumeSlot* const slot = findVolumeSlot(audioCategory, activeRoute);
    return slot != nullptr ? slot->number : noSlot;
}

/// The setter's slot: no notifications.
constexpr SlotNumber slotToWrite(std::string_view audioCategory, std::string_view activeRoute)
{
    const VolumeSlot* const slot = findVolumeSlot(audioCategory, activeRoute);
    return slot != nullptr && slot->setterKnowsIt ? slot->number : noSlot;
}

/// The slot whose slider is brought into focus: the alarm's for notifications.
constexpr SlotNumber slotToFocus(std::string_view audioCategory, std::string_view activeRoute)
{
    const VolumeSlot* const slot = findVolumeSlot(audioCategory, activeRoute);
    return slot != nullptr ? slot->focusSlot : noSlot;
}

} // namespace panotra
