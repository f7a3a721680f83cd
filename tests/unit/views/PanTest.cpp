/// The drag on a slider: level, flags, the dismissal that waits, the system's volume, the store, the assistant.
#include "tests/support/KnownFacts.h"
#include "tests/support/MixerTest.h"

#include <set>

namespace panotra {
namespace {

using testing::isNear;

constexpr std::int64_t began = 1, changed = 2, ended = 3, cancelled = 4, failed = 5;
constexpr std::int64_t everyState[] = { began, changed, ended, cancelled, failed };
constexpr std::int64_t everyEnd[] = { ended, cancelled, failed };

struct Pan : testing::MixerTest {
    Pan() { storeLevels(0.5); }

    /// A shown mixer whose fade-in is over.
    void launchWithMixer()
    {
        show(panel);
        pass(1);
        forgetEvents();
    }
    void pan(int slot, std::int64_t state, double x)
    {
        device.home->pan(slot, state, x);
        pass();
    }
    /// The level that a finger at `x` gives a slider 200 points wide.
    static double levelAt(double x, bool canGoToZero)
    {
        const PNOVolumeView slider = PNOVolumeView::alloc().initWithName(text("Any"), 9, canGoToZero);
        slider.setFrame(CGRectMake(0, 0, 200, 50), 0.5);
        auto& recognizer = *dynamic_cast<sim::View&>(*slider.get()).recognizers.front();
        recognizer.fixedX = x;
        recognizer.send(changed);
        return slider.volume();
    }
    /// The category whose volume a drag on the slot has just set; empty for none.
    std::string categorySet(int slot)
    {
        forgetEvents();
        pan(slot, changed, 50);
        const auto set = eventsOf("setVolume");
        EXPECT_LE(set.size(), 1u);
        return set.empty() ? "" : set[0]["category"].get<std::string>();
    }
};

// The level.

TEST_F(Pan, ASliderThatCannotGoToZeroStopsAtOneSixteenth)
{
    load();
    EXPECT_EQ(levelAt(5, false), 0.0625); // 12.5 / 200
    EXPECT_EQ(levelAt(12.5, false), 0.0625);
    EXPECT_EQ(levelAt(-10, false), 0.0625);
    EXPECT_EQ(levelAt(14, false), 0.07);
    EXPECT_EQ(levelAt(100, false), 0.5);
    EXPECT_EQ(levelAt(200, false), 1.0);
    EXPECT_EQ(levelAt(250, false), 1.0);
}

TEST_F(Pan, ASliderThatMayGoToZeroDoes)
{
    load();
    EXPECT_EQ(levelAt(-10, true), 0.0);
    EXPECT_EQ(levelAt(0, true), 0.0);
    EXPECT_EQ(levelAt(5, true), 0.025);
    EXPECT_EQ(levelAt(250, true), 1.0);
}

TEST_F(Pan, TheLevelIsHeldDrawnAndSavedInEveryState)
{
    launchWithMixer();
    double x = 20;
    for (const std::int64_t state : everyState) {
        x += 10;
        // The growth is set as a drag begins; at its end the level comes before the sliders are told to rest.
        const double width = state == began ? 150.717 : slider(9).frame().size.width;
        pan(9, state, x);
        const double level = x / width;
        EXPECT_TRUE(isNear(slider(9).volume(), level)) << state;
        EXPECT_EQ(stored("volume9"), static_cast<float>(level));
        EXPECT_TRUE(isNear(part(9, "_volumeView").frame().width, x)) << "the fill ends under the finger";
    }
}

TEST_F(Pan, TheFloorIsDrawnAsSixPercent)
{
    launchWithMixer();
    pan(9, changed, -10);
    EXPECT_EQ(shownText(9), "6%");
    pan(0, changed, -10);
    EXPECT_EQ(shownText(0), "0%");
}

TEST_F(Pan, TheWidthIsThatOfTheEnlargedSlider)
{
    launchWithMixer();
    pan(9, began, 71.77); // half of 143.54, but the slider is already on its way to 150.717
    EXPECT_TRUE(isNear(slider(9).volume(), 71.77 / 150.717));
}

// What keeps the mixer on screen.

TEST_F(Pan, EveryEventOfADragPutsTheDismissalOffByOneAndAHalfSeconds)
{
    launchWithMixer();
    processValues.replaceHUD = true;
    processValues.presentedViaActivator = false;
    for (const std::int64_t state : everyState) {
        forgetEvents();
        pan(9, state, 50);
        ASSERT_EQ(events.at(0)["event"], "cancel") << "before anything else";
        EXPECT_EQ(events.at(0)["selector"], "destroyHUDWindow");
        EXPECT_EQ(events.at(0)["object"], nullptr);
        EXPECT_EQ(events.at(1)["event"], "schedule");
        EXPECT_EQ(events.at(1)["selector"], "destroyHUDWindow");
        EXPECT_EQ(events.at(1)["delay"], 1.5);
        pass(0.7);
    }
    EXPECT_TRUE(controller().window());
    pass(0.7999);
    EXPECT_EQ(view("_containerView").alpha, 1.0);
    pass(0.0002);
    EXPECT_EQ(view("_containerView").alpha, 0.0);
}

TEST_F(Pan, ADragOnAMixerThatWasShownOnDemandSchedulesNoDismissal)
{
    launchWithMixer();
    processValues.replaceHUD = true;
    for (const std::int64_t state : everyState)
        pan(9, state, 50);
    for (const sim::Json& event : eventsOf("schedule"))
        EXPECT_NE(event["selector"], "destroyHUDWindow");
}

TEST_F(Pan, NorDoesOneWhileTheSystemsIndicatorIsNotReplaced)
{
    launchWithMixer();
    processValues.presentedViaActivator = false;
    for (const std::int64_t state : everyState)
        pan(9, state, 50);
    for (const sim::Json& event : eventsOf("schedule"))
        EXPECT_NE(event["selector"], "destroyHUDWindow");
}

// Flags and focus.

TEST_F(Pan, OnlyTheBeginningBringsTheSliderIntoFocus)
{
    launchWithMixer();
    pan(9, changed, 50);
    EXPECT_EQ(countOf("animate"), 0u);
    EXPECT_FALSE(processValues.isPanning);
    pan(9, began, 50);
    EXPECT_EQ(durations(), (std::vector<double> { 0.2 }));
    EXPECT_EQ(swelling(9), 1.05);
    EXPECT_TRUE(processValues.isPanning);
}

TEST_F(Pan, WhileTheFingerIsDownTheFocusDoesNotUndoItself)
{
    launchWithMixer();
    for (const std::int64_t state : { began, changed }) {
        processValues.autoResetTransform = true;
        pan(9, state, 50);
        EXPECT_FALSE(processValues.autoResetTransform) << state;
    }
}

TEST_F(Pan, EveryKindOfEndReleasesTheLevelAndReturnsAllSlidersToRest)
{
    launchWithMixer();
    for (const std::int64_t state : everyEnd) {
        pan(9, began, 50);
        EXPECT_EQ(swelling(9), 1.05);
        forgetEvents();
        pan(9, state, 50);
        EXPECT_FALSE(processValues.isPanning) << state;
        EXPECT_TRUE(processValues.autoResetTransform);
        EXPECT_EQ(durations(), (std::vector<double> { 0.15 }));
        EXPECT_EQ(swelling(9), 1.0);
    }
}

TEST_F(Pan, TheEndSavesOnceMoreAfterTheSlidersWereTold)
{
    launchWithMixer();
    pan(9, ended, 50);
    const auto order = this->order({ "synchronize", "animate" });
    EXPECT_EQ(order, (std::vector<std::string> { "synchronize", "animate", "synchronize" }));
    EXPECT_EQ(countOf("write"), 24u);
    forgetEvents();
    pan(9, changed, 50);
    EXPECT_EQ(countOf("write"), testing::knownSlotCount);
}

TEST_F(Pan, ASliderAtZeroHoldsTheSaveBackAndNothingElse)
{
    launchWithMixer();
    slider(8).setVolume(0);
    forgetEvents();
    pan(7, changed, 100);
    EXPECT_EQ(countOf("write"), 0u);
    EXPECT_EQ(countOf("setVolume"), 1u);
    EXPECT_EQ(stored("volume7"), 0.5);
}

// The system's volume.

struct DragTarget {
    int slot;
    const char* category; ///< null: never
    std::set<std::string> routes; ///< empty: any, null included
};

const DragTarget dragTargets[] = {
    { 11, "Audio/Video", { "Receiver" } },
    { 0, "Audio/Video", { "Speaker" } },
    { 1, "Audio/Video", { "Headset", "Headphone" } },
    { 2, "Audio/Video", { "HeadphonesBT", "HeadsetBT" } },
    { 3, "PhoneCall", { "Receiver" } },
    { 4, "PhoneCall", { "Speaker" } },
    { 5, "PhoneCall", { "Headset", "Headphone" } },
    { 6, "PhoneCall", { "HeadphonesBT", "HeadsetBT" } },
    { 7, "Ringtone", {} },
    { 8, "Alarm", {} },
    { 9, nullptr, {} },
    { 10, "VoiceCommand", {} },
};

TEST_F(Pan, TheSystemFollowsExactlyTheSlidersOfTheActiveRouteAndThoseForAnyRoute)
{
    launchWithMixer();
    const std::optional<std::string> routes[]
        = { "Receiver", "Speaker", "Headphone", "Headset", "HeadphonesBT", "HeadsetBT", "AirTunes", "", std::nullopt };
    for (const auto& route : routes) {
        device.audio->route = route;
        for (const DragTarget& target : dragTargets) {
            const bool matches = target.routes.empty() || (route && target.routes.contains(*route));
            EXPECT_EQ(categorySet(target.slot), target.category != nullptr && matches ? target.category : "")
                << "slot " << target.slot << " on " << route.value_or("no route");
        }
    }
}

TEST_F(Pan, TheActiveCategoryIsNotConsulted)
{
    launchWithMixer();
    device.audio->activeCategory = "Audio/Video";
    EXPECT_EQ(categorySet(4), "PhoneCall");
    device.audio->activeCategory = "PhoneCall";
    EXPECT_EQ(categorySet(0), "Audio/Video");
}

TEST_F(Pan, ASliderOfAnotherRouteIsOnlyRemembered)
{
    launchWithMixer();
    device.audio->route = "Headphone";
    pan(0, changed, 14.354);
    EXPECT_EQ(countOf("setVolume"), 0u);
    EXPECT_EQ(systemLevel("Audio/Video"), 0.5f);
    EXPECT_EQ(stored("volume0"), 0.1f);
}

TEST_F(Pan, TheSystemGetsTheLevelAsAFloatBeforeTheStoreDoes)
{
    launchWithMixer();
    pan(7, changed, 14.354); // 14.354 / 143.54
    EXPECT_EQ(systemLevel("Ringtone"), static_cast<float>(slider(7).volume()));
    EXPECT_EQ(systemLevel("Ringtone"), 0.1f);
    EXPECT_EQ(events.at(0)["event"], "setVolume");
    EXPECT_TRUE(processValues.manualSet) << "the mixer's own change is recognised as one";
}

TEST_F(Pan, WithoutAnAudioServiceADragIsOnlyRemembered)
{
    launchWithMixer();
    device.classes->setPresent("AVSystemController", false);
    for (const DragTarget& target : dragTargets)
        pan(target.slot, changed, 14.354);
    EXPECT_EQ(countOf("setVolume"), 0u);
    EXPECT_EQ(stored("volume7"), 0.1f);
}

TEST_F(Pan, DuringADragTheSystemsAnnouncementsMoveNoSlider)
{
    launchWithMixer();
    device.audio->echo = true;
    pan(7, began, 100);
    const double level = slider(7).volume();
    EXPECT_EQ(countOf("announced"), 1u);
    EXPECT_EQ(slider(7).volume(), level);
    EXPECT_EQ(durations(), (std::vector<double> { 0.2 })) << "the focus of the drag and no other";
}

// The assistant.

TEST_F(Pan, LettingTheAssistantsSliderGoFlashesTheAssistantUnseen)
{
    launchWithMixer();
    for (const std::int64_t state : everyEnd) {
        pan(10, began, 50);
        pan(10, changed, 60);
        EXPECT_EQ(countOf("assistant"), 0u);
        pan(10, state, 60);
        const auto actions = eventsOf("assistant");
        ASSERT_EQ(actions.size(), 3u) << state;
        EXPECT_EQ(actions[0]["action"], "openSiri");
        EXPECT_EQ(actions[1]["action"], "hideWindow");
        EXPECT_EQ(actions[2]["action"], "dismissSiri");
        EXPECT_EQ(events.back()["event"], "assistant") << "after everything else";
        forgetEvents();
    }
}

TEST_F(Pan, AVisibleAssistantIsLeftAlone)
{
    launchWithMixer();
    device.home->assistantVisible = true;
    pan(10, ended, 50);
    EXPECT_EQ(countOf("assistant"), 0u);
}

TEST_F(Pan, OtherSlidersDoNotTouchTheAssistant)
{
    launchWithMixer();
    for (const DragTarget& target : dragTargets) {
        if (target.slot != 10)
            pan(target.slot, ended, 50);
    }
    EXPECT_EQ(countOf("assistant"), 0u);
}

TEST_F(Pan, MissingAssistantClassesLeaveTheirStepsOut)
{
    launchWithMixer();
    device.classes->setPresent("SBAssistantController", false);
    pan(10, ended, 50);
    EXPECT_EQ(countOf("assistant"), 2u) << "opened and dismissed, with no window to hide";
    device.classes->setPresent("SBAssistantController", true);
    device.classes->setPresent("AXSpringBoardServer", false);
    forgetEvents();
    pan(10, ended, 50);
    const auto actions = eventsOf("assistant");
    ASSERT_EQ(actions.size(), 1u);
    EXPECT_EQ(actions[0]["action"], "hideWindow");
}

} // namespace
} // namespace panotra
