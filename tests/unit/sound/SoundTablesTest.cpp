/// The two tables, by a list of our own of what people have plugged in and what programs say of themselves.
#include "simulator/sound/SoundTables.h"

#include <gtest/gtest.h>

namespace panotra::sound {
namespace {

struct KnownOutput {
    const char* portType;
    const char* formFactor;
    const char* bus;
    const char* route;
    bool hasSlot;
};

constexpr KnownOutput knownOutputs[] = {
    { "", "", "", "Speaker", true },
    { "", "speaker", "", "Speaker", true },
    { "", "internal", "pci", "Speaker", true },
    { "", "computer", "usb", "Speaker", true },
    { "", "hifi", "", "Speaker", true },
    { "", "handset", "", "Receiver", true },
    { "", "headphone", "", "Headphone", true },
    { "", "headset", "usb", "Headset", true },
    { "", "hands-free", "", "hands-free", false },
    { "", "tv", "", "tv", false },
    { "", "webcam", "usb", "webcam", false },
    { "", "microphone", "", "microphone", false },
    // Bluetooth: the talking kinds, and all others.
    { "", "headset", "bluetooth", "HeadsetBT", true },
    { "", "hands-free", "bluetooth", "HeadsetBT", true },
    { "", "handset", "bluetooth", "HeadsetBT", true },
    { "", "headphone", "bluetooth", "HeadphonesBT", true },
    { "", "speaker", "bluetooth", "HeadphonesBT", true },
    { "", "portable", "bluetooth", "HeadphonesBT", true },
    { "", "car", "bluetooth", "HeadphonesBT", true },
    { "", "", "bluetooth", "HeadphonesBT", true },
    // A port that says what it is goes before the form factor.
    { "headphones", "internal", "pci", "Headphone", true },
    { "speaker", "headset", "pci", "Speaker", true },
    { "headset", "internal", "pci", "Headset", true },
    { "handset", "internal", "", "Receiver", true },
    { "earpiece", "internal", "", "Receiver", true },
    { "hdmi", "internal", "pci", "hdmi", false },
    { "spdif", "internal", "pci", "spdif", false },
    { "line", "internal", "pci", "line", false },
    { "tv", "", "", "tv", false },
    { "hands-free", "headphone", "bluetooth", "HeadsetBT", true },
    // One that only says how it is connected does not.
    { "unknown", "headset", "usb", "Headset", true },
    { "analog", "internal", "pci", "Speaker", true },
    { "usb", "headphone", "usb", "Headphone", true },
    { "bluetooth", "headset", "bluetooth", "HeadsetBT", true },
    // Any case.
    { "Headphones", "", "", "Headphone", true },
    { "", "HeadSet", "BLUETOOTH", "HeadsetBT", true },
};

TEST(SoundTables, EveryKindOfOutputHasItsRoute)
{
    for (const KnownOutput& known : knownOutputs) {
        const OutputRoute route
            = routeOf({ .name = "out", .portType = known.portType, .formFactor = known.formFactor, .bus = known.bus });
        EXPECT_EQ(route, (OutputRoute { known.route, known.hasSlot }))
            << known.portType << '/' << known.formFactor << '/' << known.bus << ": " << route.name;
    }
}

TEST(SoundTables, TheOutputThatStandsInForNoneHasNoSlot)
{
    EXPECT_FALSE(routeOf({ .name = "auto_null" }).hasSlot);
    EXPECT_FALSE(routeOf({ .name = "auto_null", .formFactor = "speaker" }).hasSlot);
}

TEST(SoundTables, EveryRoleHasItsCategoryInTheWordsOfBothServers)
{
    for (const char* const role : { "phone", "Phone", "Communication", "communication" })
        EXPECT_EQ(categoryOfRole(role), "PhoneCall") << role;
    for (const char* const role : { "assistant", "Assistant" })
        EXPECT_EQ(categoryOfRole(role), "VoiceCommand") << role;
    for (const char* const role : { "alarm", "Alarm", "ALARM" })
        EXPECT_EQ(categoryOfRole(role), "Alarm") << role;
    for (const char* const role : { "event", "Event", "notification", "Notification" })
        EXPECT_EQ(categoryOfRole(role), std::nullopt) << role;
    for (const char* const role : { "", "music", "Music", "video", "Movie", "game", "a11y", "production", "no such" })
        EXPECT_EQ(categoryOfRole(role), "Audio/Video") << role;
}

} // namespace
} // namespace panotra::sound
