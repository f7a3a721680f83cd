/// The system's own indicator, its re-orientation, notification sounds and the ringer switch.
#include "tests/support/MixerTest.h"

namespace panotra {
namespace {

struct Indicator : testing::MixerTest {
    Indicator() { storeLevels(0.5); }

    /// How many of the two ways to show the indicator came through.
    std::size_t indicatorsShown()
    {
        forgetEvents();
        device.home->presentHUD(2.5);
        device.home->presentVolumeHUD(1, 0.25f);
        return countOf("indicator");
    }
    bool wasLaidOut() const { return processValues.previousOrientation == device.screen->orientation; }
    /// Turns without telling anybody, so that a layout that follows shows.
    void turnSilently() { device.screen->orientation = 3; }
};

// The gate.

TEST_F(Indicator, TheSystemsIndicatorComesThroughUnchangedWhenNothingHoldsIt)
{
    launch();
    EXPECT_EQ(indicatorsShown(), 2u);
    EXPECT_EQ(eventsOf("indicator")[0]["by"], "presentHUDView:autoDismissWithDelay:");
    EXPECT_EQ(eventsOf("indicator")[0]["delay"], 2.5);
    EXPECT_EQ(eventsOf("indicator")[1]["by"], "_presentVolumeHUDWithMode:volume:");
    EXPECT_EQ(eventsOf("indicator")[1]["mode"], 1);
    EXPECT_EQ(eventsOf("indicator")[1]["level"], 0.25);
}

TEST_F(Indicator, EachOfFourConditionsAloneHoldsBothWaysBack)
{
    launch();
    processValues.manualSet = true;
    EXPECT_EQ(indicatorsShown(), 0u);
    processValues.manualSet = false;
    processValues.replaceHUD = true;
    EXPECT_EQ(indicatorsShown(), 0u);
    processValues.replaceHUD = false;
    processValues.isHackedRingtoneVolume = true;
    EXPECT_EQ(indicatorsShown(), 0u);
    processValues.isHackedRingtoneVolume = false;
    presentOnDemand();
    EXPECT_EQ(indicatorsShown(), 0u);
    dismiss();
    EXPECT_EQ(indicatorsShown(), 2u);
}

TEST_F(Indicator, TheMixerIsOnScreenUntilItIsTornDown)
{
    show(panel);
    pass(1);
    controller().destroyHUDWindow();
    pass(0.39);
    EXPECT_EQ(indicatorsShown(), 0u);
    pass(0.02);
    EXPECT_EQ(indicatorsShown(), 2u);
}

TEST_F(Indicator, AProgramThatSetsAVolumeHoldsItBackUntilAnExplicitChangeToAnotherLevel)
{
    launch();
    const auto pressed = [this](sim::Button button) {
        forgetEvents();
        device.home->press(button);
        device.home->release(button);
        pass();
        return countOf("indicator");
    };
    EXPECT_EQ(pressed(sim::Button::Up), 1u);
    device.home->setVolume("Audio/Video", 0.5f);
    store("volume0", 0.5625); // what the press will reach is already remembered
    EXPECT_EQ(pressed(sim::Button::Up), 0u) << "an explicit change to the remembered level clears nothing";
    EXPECT_EQ(pressed(sim::Button::Up), 1u) << "one to another level does";
}

// Layout.

TEST_F(Indicator, AReorientationIsPassedOnAndFollowedByALayoutOnlyIfItIsOne)
{
    show(panel);
    turnSilently();
    device.home->reorientHUD(false);
    EXPECT_EQ(eventsOf("reoriented").at(0)["flag"], false);
    EXPECT_FALSE(wasLaidOut());
    forgetEvents();
    device.home->reorientHUD(true);
    EXPECT_EQ(events.at(0)["event"], "reoriented") << "the system's own comes first";
    EXPECT_EQ(events.at(0)["flag"], true);
    EXPECT_TRUE(wasLaidOut());
}

TEST_F(Indicator, BothStatusBarsArePassedOnAndAlwaysFollowedByALayout)
{
    for (const char* const name : { "UIStatusBar", "_UIStatusBar" }) {
        show(panel);
        device.screen->orientation = 1;
        controller().layoutSubviews();
        turnSilently();
        forgetEvents();
        device.home->setStatusBarFrame(name, 1, 2, 3, 4);
        EXPECT_EQ(events.at(0)["event"], "statusBarFrame");
        EXPECT_EQ(events.at(0)["class"], name);
        EXPECT_EQ(events.at(0)["frame"], (sim::Json { 1, 2, 3, 4 }));
        EXPECT_TRUE(wasLaidOut()) << name;
        dismiss();
    }
}

TEST_F(Indicator, AStatusBarSpendsTheFirstLayoutEvenWithoutAMixer)
{
    launch();
    device.home->setStatusBarFrame("UIStatusBar", 0, 0, 375, 20);
    EXPECT_FALSE(processValues.justCreated);
    EXPECT_FALSE(controller().window());
}

// Sounds.

TEST_F(Indicator, NotificationSoundsArePlayedAtTheNotificationsLevel)
{
    store("volume9", 0.25);
    launch();
    for (const std::int64_t type : { 0, 1, 4, 6, -1 }) {
        processValues.isHackedRingtoneVolume = false;
        forgetEvents();
        device.home->playSound(type);
        EXPECT_TRUE(processValues.isHackedRingtoneVolume) << type;
        EXPECT_EQ(order({ "setVolume", "sound" }), (std::vector<std::string> { "setVolume", "sound" }));
        EXPECT_EQ(eventsOf("setVolume")[0]["category"], "Ringtone");
        EXPECT_EQ(eventsOf("setVolume")[0]["level"], 0.25);
        EXPECT_EQ(eventsOf("sound")[0]["type"], type);
    }
}

TEST_F(Indicator, WhileTheMixerIsShownItsSliderHoldsTheNotificationsLevel)
{
    show(panel);
    slider(9).setVolume(0.125);
    device.home->playSound(1);
    EXPECT_EQ(systemLevel("Ringtone"), 0.125f);
}

TEST_F(Indicator, SoundsOfTypeFiveAndSoundsWithoutATypeArePlayedAsTheyAre)
{
    launch();
    for (const std::optional<std::int64_t> type : { std::optional<std::int64_t>(5), std::optional<std::int64_t>() }) {
        forgetEvents();
        device.home->playSound(type);
        EXPECT_EQ(order({ "setVolume", "sound" }), (std::vector<std::string> { "sound" }));
        EXPECT_FALSE(processValues.isHackedRingtoneVolume);
    }
}

TEST_F(Indicator, TheAnnouncementOfTheBorrowedLevelFindsTheFlag)
{
    store("volume9", 0.25);
    launch();
    device.audio->echo = true;
    device.home->playSound(1);
    forgetEvents();
    pass();
    EXPECT_FALSE(processValues.isHackedRingtoneVolume) << "consumed";
    EXPECT_EQ(countOf("announced"), 0u) << "and swallowed";
    EXPECT_EQ(stored("volume7"), 0.5) << "the ringer's own level is not touched";
}

/// The audio service announces no level that is the present one. Required: the flag waits for whatever comes next.
TEST_F(Indicator, ABorrowedLevelThatIsThePresentOneIsNotAnnouncedAndTheFlagMeetsTheNextAnnouncement)
{
    store("volume9", 0.5);
    launch();
    device.audio->echo = true;
    ASSERT_EQ(systemLevel("Ringtone"), 0.5f);
    device.home->playSound(1);
    pass();
    EXPECT_TRUE(processValues.isHackedRingtoneVolume);
    forgetEvents();
    announce("Audio/Video", "ExplicitVolumeChange", 0.25f);
    EXPECT_EQ(countOf("announced"), 0u) << "swallowed, though it was not the ringer's";
    EXPECT_FALSE(processValues.isHackedRingtoneVolume);
    announce("Audio/Video", "ExplicitVolumeChange", 0.75f);
    EXPECT_EQ(countOf("announced"), 1u);
}

TEST_F(Indicator, TheAnswerOfTheSystemsOwnMethodIsHandedOn)
{
    launch();
    HostObject* const sounds = device.home->shared("SBSoundController");
    const auto play = [&] {
        return sim::send<bool, HostObject*, std::uint64_t, HostObject*>(
            sounds, sim::selector("playSound:environments:completion:"), nullptr, 0, nullptr);
    };
    EXPECT_TRUE(play());
    EXPECT_EQ(countOf("setVolume"), 0u) << "nothing to play has no type";
}

// The ringer switch.

TEST_F(Indicator, TheRingerSwitchClearsTheManualFlagAndIsPassedOn)
{
    launch();
    for (const bool muted : { true, false }) {
        processValues.manualSet = true;
        forgetEvents();
        device.home->setRingerMuted(muted);
        EXPECT_FALSE(processValues.manualSet);
        ASSERT_EQ(countOf("ringer"), 1u);
        EXPECT_EQ(eventsOf("ringer")[0]["muted"], muted);
        EXPECT_FALSE(controller().window()) << "nothing is presented that does not replace the indicator";
    }
}

TEST_F(Indicator, TheRingerSwitchPresentsTheMixerThatReplacesTheIndicator)
{
    store("replaceHUD", true);
    launch();
    forgetEvents();
    device.home->setRingerMuted(true);
    EXPECT_EQ(events.at(0)["event"], "ringer") << "the system's own comes first";
    EXPECT_TRUE(controller().window());
    EXPECT_EQ(shownText(7), "Silent");
    device.home->setRingerMuted(false);
    EXPECT_EQ(shownText(7), "50%");
    EXPECT_EQ(countOf("windowShown"), 2u);
}

TEST_F(Indicator, AShownMixerFollowsTheRingerSwitchEvenBesideTheSystemsIndicator)
{
    show(panel);
    device.home->setRingerMuted(true);
    for (SlotNumber slot = 0; slot < volumeSlotCount; ++slot) {
        const char* const expected = slot == 7 ? "Silent" : "50%";
        EXPECT_EQ(shownText(slot), expected);
    }
}

TEST_F(Indicator, UnmutingShowsTheHeldLevelRounded)
{
    show(panel);
    const std::pair<double, const char*> rows[]
        = { { 0.5, "50%" }, { 0.125, "13%" }, { 0.0, "0%" }, { 0.0625, "6%" }, { 1.0, "100%" } };
    for (const auto& [level, expected] : rows) {
        slider(7).setVolume(level);
        device.home->setRingerMuted(true);
        device.home->setRingerMuted(false);
        EXPECT_EQ(shownText(7), expected);
    }
    slider(7).setVolume(0.5);
}

TEST_F(Indicator, SilentStaysUntilTheLevelIsNextDrawn)
{
    show(panel);
    device.home->setRingerMuted(true);
    announce("Ringtone", "ExplicitVolumeChange", 0.75f);
    EXPECT_EQ(shownText(7), "75%");
}

TEST_F(Indicator, AnEmptyMixerHasNoRingerSliderToWriteOn)
{
    store("replaceHUD", true);
    store("activeStyle", 2);
    launch();
    device.home->setRingerMuted(true);
    device.home->setRingerMuted(false);
    EXPECT_TRUE(controller().window());
    EXPECT_EQ(shownText(7), "");
}

} // namespace
} // namespace panotra
