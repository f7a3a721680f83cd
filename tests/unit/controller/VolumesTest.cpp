/// Levels by category and route: what setter, getter and route answer, with and without the mixer on screen.
#include "tests/support/HomeScreenTest.h"
#include "tests/support/KnownFacts.h"

namespace panotra {
namespace {

struct Volumes : testing::HomeScreenTest {
    Volumes() { launch(); }
    static float read(const char* category, const char* route)
    {
        return controller().getVolumeLevel(text(category), route != nullptr ? text(route) : nullptr);
    }
    static void write(float level, const char* category, const char* route)
    {
        controller().setVolumeLevel(level, text(category), route != nullptr ? text(route) : nullptr);
    }
};

TEST_F(Volumes, EverySlotIsWrittenAndReadUnderItsOwnKeyWhileNothingIsBuilt)
{
    float level = 0.03125f;
    for (const VolumeSlot& slot : volumeSlots) {
        if (!slot.setterKnowsIt)
            continue;
        write(level, slot.category, slot.routes[0]);
        EXPECT_EQ(stored(slot.preferenceKey), level) << int(slot.number);
        EXPECT_EQ(read(slot.category, slot.routes[0]), level) << int(slot.number);
        level += 0.03125f;
    }
}

TEST_F(Volumes, EverySlotIsWrittenAndReadInItsSliderWhileTheMixerIsOnScreen)
{
    storeLevels(0.5);
    controller().createUI();
    float level = 0.03125f;
    for (const VolumeSlot& slot : volumeSlots) {
        if (!slot.setterKnowsIt)
            continue;
        write(level, slot.category, slot.routes[0]);
        EXPECT_EQ(slider(slot.number).volume(), level);
        EXPECT_EQ(read(slot.category, slot.routes[0]), level);
        EXPECT_EQ(stored(slot.preferenceKey), level);
        level += 0.03125f;
    }
}

TEST_F(Volumes, HeadphonesAndHeadsetsShareASlot)
{
    write(0.25f, "Audio/Video", "Headset");
    EXPECT_EQ(read("Audio/Video", "Headphone"), 0.25f);
    write(0.75f, "PhoneCall", "HeadsetBT");
    EXPECT_EQ(read("PhoneCall", "HeadphonesBT"), 0.75f);
    EXPECT_EQ(stored("volume1"), 0.25f);
    EXPECT_EQ(stored("volume6"), 0.75f);
}

TEST_F(Volumes, TheRingersSlotIsTheSameOnEveryRouteAndOnNone)
{
    write(0.25f, "Ringtone", "Speaker");
    EXPECT_EQ(read("Ringtone", "Headphone"), 0.25f);
    EXPECT_EQ(read("Ringtone", nullptr), 0.25f);
}

TEST_F(Volumes, NotificationsAreReadButNeverWritten)
{
    store("volume9", 0.25);
    write(0.75f, "Notifications", "Speaker");
    EXPECT_EQ(stored("volume9"), 0.25);
    EXPECT_EQ(read("Notifications", "Speaker"), 0.25f);

    storeLevels(0.25);
    controller().createUI();
    forgetEvents();
    write(0.75f, "Notifications", nullptr);
    EXPECT_EQ(slider(9).volume(), 0.25);
    EXPECT_EQ(countOf("write"), 0u);
}

TEST_F(Volumes, AnUnknownPairReadsAHalfAndIsWrittenNowhere)
{
    forgetEvents();
    for (const auto& [category, route] :
        std::vector<std::pair<const char*, const char*>> { { "Audio/Video", "AirTunes" }, { "Audio/Video", nullptr },
            { "PhoneCall", "AirTunes" }, { "audio/video", "Speaker" }, { "Movies", nullptr } }) {
        EXPECT_EQ(read(category, route), 0.5f) << category;
        write(0.75f, category, route);
    }
    EXPECT_EQ(controller().getVolumeLevel(nullptr, nullptr), 0.5f);
    controller().setVolumeLevel(0.75f, nullptr, nullptr);
    EXPECT_EQ(countOf("write"), 0u);
    EXPECT_EQ(countOf("synchronize"), 0u);
}

TEST_F(Volumes, ALevelThatWasNeverStoredReadsZeroNotAHalf)
{
    EXPECT_EQ(read("Audio/Video", "Speaker"), 0.0f);
}

TEST_F(Volumes, TheSetterOnScreenRewritesAllTwelveKeysAtOnce)
{
    storeLevels(0.5);
    controller().createUI();
    forgetEvents();
    write(0.25f, "Alarm", nullptr);
    EXPECT_EQ(countOf("write"), testing::knownSlotCount);
    EXPECT_EQ(countOf("synchronize"), 1u);
    EXPECT_EQ(stored("volume8"), 0.25);
}

TEST_F(Volumes, TheSetterOnScreenWritesNothingWhileAGuardedSliderStandsAtZero)
{
    storeLevels(0.5);
    store("volume4", 0.0);
    controller().createUI();
    forgetEvents();
    write(0.25f, "Alarm", nullptr);
    EXPECT_EQ(slider(8).volume(), 0.25);
    EXPECT_EQ(countOf("write"), 0u);
    EXPECT_EQ(stored("volume8"), 0.5);
}

TEST_F(Volumes, TheRouteIsTakenAsItComes)
{
    for (const char* route : { "Speaker", "AirTunes", " speaker ", "Receiver" }) {
        device.audio->route = route;
        EXPECT_EQ(controller().pickedRoute().view(), route);
    }
    device.audio->route = std::nullopt;
    EXPECT_FALSE(controller().pickedRoute());
}

TEST_F(Volumes, WithoutTheAudioServiceThereIsNoRoute)
{
    device.classes->setPresent("AVSystemController", false);
    EXPECT_FALSE(controller().pickedRoute());
}

TEST(VolumesOfNoController, AreZeroAndWrittenNowhere)
{
    const PNOController none;
    EXPECT_EQ(none.getVolumeLevel(nullptr, nullptr), 0.0f);
    EXPECT_EQ(none.getVolume(nullptr), 0.0f);
    EXPECT_FALSE(none.pickedRoute());
    none.setVolumeLevel(1, nullptr, nullptr);
    none.saveVolume(1, nullptr);
    none.saveVolumeLevelsToDisk();
    none.importVolumeLevelsToRam();
}

} // namespace
} // namespace panotra
