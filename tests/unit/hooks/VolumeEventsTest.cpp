/// Announcements: every row of the decision table, focus or rest, and what an announcement may lack.
#include "platform/AVSystemController.h"
#include "tests/support/HomeScreenTest.h"

#include "simulator/device/View.h"

namespace panotra {
namespace {

struct VolumeEvents : testing::HomeScreenTest {
    VolumeEvents() { storeLevels(0.5); }
    void explicitChange(float level) { announce("Audio/Video", "ExplicitVolumeChange", level); }
    /// Whether a slider was told to grow, or all to rest, since the events were last forgotten.
    bool focused() const { return countWithDuration(0.2) == 1; }
    bool reset() const { return countWithDuration(0.15) == 2; } // one records, one resets
    std::size_t countWithDuration(double duration) const
    {
        std::size_t count = 0;
        for (const sim::Json& event : eventsOf("animate"))
            count += event["duration"] == duration;
        return count;
    }
    void launchWithMixer()
    {
        launch();
        controller().createUI();
        pass(0.3);
        forgetEvents();
    }
};

// The decision table.

TEST_F(VolumeEvents, AConsumedAnnouncementIsSwallowedWhateverItsReason)
{
    launch();
    for (const char* reason : { "ExplicitVolumeChange", "RouteChange", "CategoryChange", "Anything" }) {
        processValues.isHackedRingtoneVolume = true;
        forgetEvents();
        announce("Ringtone", reason, 0.25f);
        EXPECT_FALSE(processValues.isHackedRingtoneVolume);
        EXPECT_TRUE(events.empty()) << reason;
        EXPECT_FALSE(processValues.globalCategory);
    }
}

TEST_F(VolumeEvents, AChangeOfRouteOrCategorySetsTheSystemToTheRememberedLevel)
{
    launch();
    for (const char* reason : { "RouteChange", "CategoryChange" }) {
        processValues.manualSet = false;
        forgetEvents();
        announce("Audio/Video", reason, 0.75f);
        ASSERT_EQ(countOf("setVolume"), 1u) << reason;
        EXPECT_EQ(eventsOf("setVolume")[0]["category"], "Audio/Video");
        EXPECT_EQ(eventsOf("setVolume")[0]["level"], 0.5);
        EXPECT_EQ(countOf("announced"), 1u);
        EXPECT_EQ(countOf("write"), 0u);
        EXPECT_TRUE(processValues.manualSet);
        EXPECT_EQ(events.back()["event"], "announced") << "the announcement is passed on last";
    }
}

TEST_F(VolumeEvents, AChangeOfRouteToAnEqualLevelSetsNothing)
{
    launch();
    for (const char* reason : { "RouteChange", "CategoryChange" }) {
        forgetEvents();
        announce("Audio/Video", reason, 0.5f);
        EXPECT_EQ(countOf("setVolume"), 0u) << reason;
        EXPECT_EQ(countOf("announced"), 1u);
        EXPECT_FALSE(processValues.manualSet);
    }
}

TEST_F(VolumeEvents, AChangeOfRouteNeverPresentsTheMixer)
{
    store("replaceHUD", true);
    launch();
    announce("Audio/Video", "RouteChange", 0.75f);
    announce("Audio/Video", "RouteChange", 0.5f);
    EXPECT_FALSE(controller().window());
}

TEST_F(VolumeEvents, AnExplicitChangeToTheRememberedLevelPresentsAndLeavesTheManualFlag)
{
    store("replaceHUD", true);
    launch();
    processValues.manualSet = true;
    explicitChange(0.5f);
    EXPECT_TRUE(controller().window());
    EXPECT_TRUE(processValues.manualSet);
    EXPECT_EQ(countOf("announced"), 1u);
}

TEST_F(VolumeEvents, AnExplicitChangeToTheRememberedLevelDoesNothingWithoutReplacingTheIndicator)
{
    launch();
    forgetEvents();
    explicitChange(0.5f);
    EXPECT_EQ(order({ "animate", "write", "setVolume", "announced" }), (std::vector<std::string> { "announced" }));
}

TEST_F(VolumeEvents, DuringADragAnExplicitChangeOnlyClearsTheManualFlag)
{
    launch();
    processValues.manualSet = true;
    processValues.isPanning = true;
    forgetEvents();
    explicitChange(0.75f);
    EXPECT_FALSE(processValues.manualSet);
    EXPECT_EQ(order({ "animate", "write", "setVolume", "announced" }), (std::vector<std::string> { "announced" }));
    EXPECT_EQ(stored("volume0"), 0.5);
}

TEST_F(VolumeEvents, DuringADragAnExplicitChangeStillPresentsTheMixerThatReplacesTheIndicator)
{
    store("replaceHUD", true);
    launch();
    processValues.isPanning = true;
    explicitChange(0.75f);
    EXPECT_TRUE(controller().window());
    EXPECT_EQ(stored("volume0"), 0.5);
    processValues.isPanning = false;
}

TEST_F(VolumeEvents, ANewLevelIsRecordedInAnAnimationAndItsSliderFocused)
{
    launchWithMixer();
    processValues.manualSet = true;
    explicitChange(0.75f);
    EXPECT_FALSE(processValues.manualSet);
    EXPECT_EQ(slider(0).volume(), 0.75);
    EXPECT_EQ(stored("volume0"), 0.75);
    const sim::Json recording = eventsOf("animate").at(0);
    EXPECT_EQ(recording["duration"], 0.15);
    EXPECT_EQ(recording["delay"], 0.0);
    EXPECT_EQ(recording["options"], 2);
    EXPECT_TRUE(focused());
    EXPECT_EQ(swelling(0), 1.05);
    EXPECT_EQ(events.back()["event"], "announced");
}

TEST_F(VolumeEvents, ANewLevelIsRecordedInThePreferencesWhileNothingIsBuilt)
{
    launch();
    forgetEvents();
    explicitChange(0.75f);
    EXPECT_EQ(countOf("write"), 1u);
    EXPECT_EQ(stored("volume0"), 0.75);
}

TEST_F(VolumeEvents, ADragMattersToNoOtherRowOfTheTable)
{
    launch();
    processValues.isPanning = true;
    forgetEvents();
    announce("Audio/Video", "RouteChange", 0.75f);
    EXPECT_EQ(countOf("setVolume"), 1u);
    announce("Audio/Video", "RouteChange", 0.5f);
    EXPECT_EQ(countOf("setVolume"), 1u);
    announce("Audio/Video", "ExplicitVolumeChange", 0.5f);
    announce("Audio/Video", "Anything", 0.75f);
    EXPECT_EQ(countOf("announced"), 4u);
    processValues.isHackedRingtoneVolume = true;
    announce("Audio/Video", "Anything", 0.75f);
    EXPECT_EQ(countOf("announced"), 4u);
    EXPECT_EQ(countOf("animate"), 0u);
}

TEST_F(VolumeEvents, AnyOtherReasonOnlyUpdatesTheCategory)
{
    store("replaceHUD", true);
    launch();
    for (const char* reason : { "routechange", "VolumeChange", "" }) {
        forgetEvents();
        announce("Alarm", reason, 0.75f);
        EXPECT_EQ(processValues.globalCategory.get().view(), "Alarm");
        EXPECT_EQ(order({ "animate", "write", "setVolume", "windowShown", "announced" }),
            (std::vector<std::string> { "announced" }));
    }
}

// Focus or rest.

struct Decision {
    float level;
    std::int64_t mode;
    bool focuses;
};

struct FocusDecision : VolumeEvents, ::testing::WithParamInterface<Decision> { };

TEST_P(FocusDecision, FollowsLevelAndMode)
{
    launchWithMixer();
    device.home->volumeMode = GetParam().mode;
    explicitChange(GetParam().level);
    EXPECT_EQ(focused(), GetParam().focuses);
    EXPECT_EQ(reset(), !GetParam().focuses);
    EXPECT_EQ(slider(0).volume(), GetParam().level);
}

INSTANTIATE_TEST_SUITE_P(Table, FocusDecision,
    ::testing::Values(Decision { 1.0f, 0, false }, Decision { 1.0f, 1, false }, Decision { 0.0f, 0, false },
        Decision { 0.0f, 1, false }, Decision { 0.0625f, 0, true }, Decision { 0.0625f, 1, false },
        Decision { 0.07f, 1, true }, Decision { 0.07f, 0, true }, Decision { 0.03f, 0, true },
        Decision { 0.03f, -1, false }, Decision { 0.99f, 7, true }, Decision { 1.5f, 0, true },
        Decision { -0.25f, 0, true }, Decision { -0.25f, 1, false }));

TEST_F(VolumeEvents, WithoutVolumeControlTheModeIsZero)
{
    device.classes->setPresent("VolumeControl", false);
    launchWithMixer();
    explicitChange(0.03f);
    EXPECT_TRUE(focused());
}

// What an announcement may lack or hold.

TEST_F(VolumeEvents, AMissingLevelReadsAsZero)
{
    launch();
    device.home->announce("Audio/Video", "ExplicitVolumeChange", std::nullopt);
    EXPECT_EQ(stored("volume0"), 0.0);
}

TEST_F(VolumeEvents, AMissingReasonMatchesNone)
{
    launch();
    forgetEvents();
    device.home->announce("Alarm", std::nullopt, 0.75f);
    EXPECT_EQ(processValues.globalCategory.get().view(), "Alarm");
    EXPECT_EQ(order({ "setVolume", "animate", "announced" }), (std::vector<std::string> { "announced" }));
}

TEST_F(VolumeEvents, AMissingCategoryIsNullAndUnknown)
{
    launch();
    announce("Alarm", "RouteChange", 0.5f);
    device.home->announce(std::nullopt, "RouteChange", 0.75f);
    EXPECT_FALSE(processValues.globalCategory);
    EXPECT_EQ(eventsOf("setVolume").back()["category"], nullptr);
    EXPECT_EQ(eventsOf("setVolume").back()["level"], 0.5) << "an unknown pair reads a half";
}

TEST_F(VolumeEvents, TheRouteOfTheMomentDecidesTheSlot)
{
    launch();
    device.audio->route = "Headset";
    explicitChange(0.75f);
    device.audio->route = std::nullopt;
    explicitChange(0.25f);
    EXPECT_EQ(stored("volume1"), 0.75);
    EXPECT_EQ(stored("volume0"), 0.5);
    announce("Alarm", "ExplicitVolumeChange", 0.25f);
    EXPECT_EQ(stored("volume8"), 0.25);
}

} // namespace
} // namespace panotra
