/// The remembered levels in the preference domain: one key, all twelve, loading, and the guard.
#include "tests/support/HomeScreenTest.h"
#include "tests/support/KnownFacts.h"

namespace panotra {
namespace {

struct VolumeStore : testing::HomeScreenTest {
    VolumeStore() { launch(); }
    void show()
    {
        controller().createUI();
        forgetEvents();
    }
    void setSystemLevels()
    {
        device.audio->store("Audio/Video", 0.75f);
        device.audio->store("PhoneCall", 0.25f);
        device.audio->store("Ringtone", 0.375f);
        device.audio->store("Alarm", 0.875f);
        device.audio->store("Notifications", 1.0f);
        device.audio->store("VoiceCommand", 0.625f);
    }
};

TEST_F(VolumeStore, OneKeyIsWrittenThroughAFreshHandleThatWasSynchronizedFirst)
{
    forgetEvents();
    controller().saveVolume(0.25f, text("volume4"));
    EXPECT_EQ(order({ "synchronize", "write" }), (std::vector<std::string> { "synchronize", "write" }));
    EXPECT_EQ(stored("volume4"), 0.25);
}

TEST_F(VolumeStore, OneKeyIsReadIntoTheFieldThatItAnswersFrom)
{
    store("volume4", 0.25);
    EXPECT_EQ(controller().getVolume(text("volume4")), 0.25f);
    EXPECT_EQ(controller().valueForKey("_volume").floatValue(), 0.25f);
}

TEST_F(VolumeStore, AKeyNeverWrittenReadsZeroAndLeavesTheFieldAtZero)
{
    store("volume4", 0.25);
    controller().getVolume(text("volume4"));
    EXPECT_EQ(controller().getVolume(text("volume5")), 0.0f);
    EXPECT_EQ(controller().valueForKey("_volume").floatValue(), 0.0f);
}

TEST_F(VolumeStore, AValueThatIsNoNumberYieldsWhatItsConversionGives)
{
    store("volume4", "0.25 or so");
    store("volume5", true);
    EXPECT_EQ(controller().getVolume(text("volume4")), 0.25f);
    EXPECT_EQ(controller().getVolume(text("volume5")), 1.0f);
}

TEST_F(VolumeStore, FirstUseSeedsEverySliderFromItsPlatformCategory)
{
    setSystemLevels();
    controller().createUI();
    for (const SlotNumber slot : std::initializer_list<SlotNumber> { 0, 1, 2, 11 })
        EXPECT_EQ(slider(slot).volume(), 0.75) << int(slot);
    for (const SlotNumber slot : std::initializer_list<SlotNumber> { 3, 4, 5, 6 })
        EXPECT_EQ(slider(slot).volume(), 0.25) << int(slot);
    EXPECT_EQ(slider(7).volume(), 0.375);
    EXPECT_EQ(slider(8).volume(), 0.875);
    EXPECT_EQ(slider(9).volume(), 0.375) << "notifications are seeded from the ringer";
    EXPECT_EQ(slider(10).volume(), 0.625);
}

TEST_F(VolumeStore, SeedsAreWrittenBackAtOnceInTheOrderOfTheSlots)
{
    setSystemLevels();
    controller().createUI();
    const std::vector<sim::Json> writes = eventsOf("write");
    // Each of the sliders is drawn in turn and asks for a save.
    constexpr std::size_t sliders = testing::knownSlotCount;
    ASSERT_EQ(writes.size(), sliders * sliders);
    for (std::size_t i = 0; i < writes.size(); ++i)
        EXPECT_EQ(writes[i]["key"], "volume" + std::to_string(i % sliders));
    EXPECT_EQ(stored("volume9"), 0.375);
}

TEST_F(VolumeStore, AStoredLevelWinsOverTheSeedAlsoAStoredZero)
{
    setSystemLevels();
    store("volume9", 0.0);
    store("volume0", 0.125);
    controller().createUI();
    EXPECT_EQ(slider(9).volume(), 0.0);
    EXPECT_EQ(slider(0).volume(), 0.125);
    EXPECT_EQ(shownText(9), "0%");
}

TEST_F(VolumeStore, WithoutTheAudioServiceTheSeedsAreZero)
{
    device.classes->setPresent("AVSystemController", false);
    controller().createUI();
    for (SlotNumber slot = 0; slot < volumeSlotCount; ++slot)
        EXPECT_EQ(slider(slot).volume(), 0.0);
}

TEST_F(VolumeStore, ACategoryThatThePlatformDoesNotKnowSeedsZeroAndTheOthersTheirLevels)
{
    std::erase_if(device.audio->levels, [](const auto& level) { return level.first == "Alarm"; });
    controller().createUI();
    EXPECT_EQ(slider(8).volume(), 0.0);
    EXPECT_EQ(slider(7).volume(), 0.5);
    EXPECT_EQ(slider(10).volume(), 0.5);
}

TEST_F(VolumeStore, SavingBeforeTheMixerWasBuiltWritesNothing)
{
    forgetEvents();
    controller().saveVolumeLevelsToDisk();
    EXPECT_TRUE(events.empty());
}

TEST_F(VolumeStore, AnyGuardedSliderAtZeroHoldsBackTheWholeSave)
{
    for (SlotNumber guarded = 3; guarded <= 10; ++guarded) {
        storeLevels(0.5);
        controller().createUI();
        slider(guarded).setVolume(0);
        forgetEvents();
        controller().saveVolumeLevelsToDisk();
        EXPECT_TRUE(events.empty()) << int(guarded);
        slider(guarded).setVolume(0.5);
    }
}

TEST_F(VolumeStore, MediaSlidersMayStandAtZero)
{
    storeLevels(0.5);
    show();
    for (const SlotNumber media : std::initializer_list<SlotNumber> { 0, 1, 2, 11 })
        slider(media).setVolume(0);
    controller().destroyHUDWindow();
    EXPECT_EQ(countOf("write"), testing::knownSlotCount);
    EXPECT_EQ(stored("volume0"), 0.0);
    EXPECT_EQ(stored("volume11"), 0.0);
    EXPECT_EQ(stored("volume3"), 0.5);
}

TEST_F(VolumeStore, ClosingWithAGuardedSliderAtZeroKeepsEveryStoredValue)
{
    storeLevels(0.5);
    show();
    slider(0).setVolume(0.25);
    slider(5).setVolume(0);
    controller().destroyHUDWindow();
    EXPECT_EQ(countOf("write"), 0u);
    EXPECT_EQ(stored("volume0"), 0.5);
}

TEST_F(VolumeStore, TheGuardTestsForExactlyZero)
{
    storeLevels(0.5);
    show();
    slider(5).setVolume(1e-30);
    controller().saveVolumeLevelsToDisk();
    EXPECT_EQ(countOf("write"), testing::knownSlotCount);
}

TEST_F(VolumeStore, ClosingSavesBeforeTheFadeStarts)
{
    storeLevels(0.5);
    show();
    controller().destroyHUDWindow();
    const std::vector<std::string> happened = order({ "write", "animate" });
    ASSERT_EQ(happened.size(), testing::knownSlotCount + 1);
    EXPECT_EQ(happened.back(), "animate");
}

TEST_F(VolumeStore, LevelsAreStoredAs32BitFloats)
{
    storeLevels(0.5);
    show();
    slider(0).setVolume(0.1);
    controller().saveVolumeLevelsToDisk();
    EXPECT_EQ(stored("volume0"), static_cast<double>(0.1f));
}

} // namespace
} // namespace panotra
