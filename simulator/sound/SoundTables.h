/// The two tables between a sound server and the mixer: which route an output is, which category a stream's role.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace panotra::sound {

/// What a server says of an output. Texts are in any case; one that the server does not give is empty.
struct OutputTraits {
    std::string name {}; ///< of the sink, as servers' tools show it
    std::string portType {}; ///< of the active port
    std::string formFactor {}; ///< the property device.form_factor
    std::string bus {}; ///< the property device.bus

    bool operator==(const OutputTraits&) const = default;
};

/// The route of what is heard through an output.
struct OutputRoute {
    std::string name; ///< one of facts/AudioNames.h, or what the output is where no slot knows it
    bool hasSlot; ///< false: nothing is remembered for it, nothing set

    bool operator==(const OutputRoute&) const = default;
};

/// A row of the table of routes. Null: a route without a slot.
struct RouteRow {
    const char* kind; ///< a form factor or the type of a port, in small letters; "" where nothing is known
    const char* route;
    const char* routeByBluetooth;
};

/// Wired, what stands in no row has no slot; by Bluetooth it is headphones.
inline constexpr std::array<RouteRow, 11> routeRows { {
    { "", "Speaker", "HeadphonesBT" },
    { "speaker", "Speaker", "HeadphonesBT" },
    { "internal", "Speaker", "HeadphonesBT" },
    { "computer", "Speaker", "HeadphonesBT" },
    { "hifi", "Speaker", "HeadphonesBT" },
    { "handset", "Receiver", "HeadsetBT" },
    { "earpiece", "Receiver", "HeadsetBT" },
    { "headphone", "Headphone", "HeadphonesBT" },
    { "headphones", "Headphone", "HeadphonesBT" },
    { "headset", "Headset", "HeadsetBT" },
    { "hands-free", nullptr, "HeadsetBT" },
} };

/// Types of ports that tell how something is connected and not what it is: the form factor tells then.
inline constexpr std::array portTypesThatSayNothing { "unknown", "analog", "usb", "bluetooth" };

/// What both servers call the output that stands in while there is none. It is silent, and as loud as can be: a level
/// taken from it would be a shock.
inline constexpr const char* standInOutput = "auto_null";

/// A row of the table of roles. A null category: such a stream changes nothing.
struct RoleRow {
    const char* role; ///< in small letters
    const char* category;
};

/// Everything else, and no role at all, is media.
inline constexpr std::array<RoleRow, 6> roleRows { {
    { "phone", "PhoneCall" },
    { "communication", "PhoneCall" },
    { "assistant", "VoiceCommand" },
    { "alarm", "Alarm" },
    { "event", nullptr },
    { "notification", nullptr },
} };

OutputRoute routeOf(const OutputTraits& output);

/// None: a stream of that role changes nothing.
std::optional<std::string> categoryOfRole(std::string_view role);

} // namespace panotra::sound
