/// Around the announcements: the ringer restore, the other overlays, the seed of the category, volumes set by programs.
#include "platform/AVSystemController.h"
#include "tests/support/HomeScreenTest.h"

namespace panotra {
namespace {

struct AroundVolumeEvents : testing::HomeScreenTest {
    AroundVolumeEvents() { storeLevels(0.5); }
};

// The ringer restore of older systems.

TEST_F(AroundVolumeEvents, OlderSystemsGetTheRingerBackATenthOfASecondAfterTheSound)
{
    device.classes->setPresent("UIViewPropertyAnimator", false);
    store("volume7", 0.75);
    launch();
    processValues.isHackedRingtoneVolume = true;
    device.audio->store("Ringtone", 0.25f);
    forgetEvents();
    announce("Ringtone", "ExplicitVolumeChange", 0.25f);
    ASSERT_EQ(countOf("dispatch"), 1u);
    EXPECT_EQ(eventsOf("dispatch")[0]["delay"], 0.1);
    pass(0.0999);
    EXPECT_EQ(systemLevel("Ringtone"), 0.25f);
    pass(0.0002);
    EXPECT_EQ(systemLevel("Ringtone"), 0.75f);
    EXPECT_EQ(countOf("announced"), 0u);
}

TEST_F(AroundVolumeEvents, TheRingerGetsBackTheLevelThatIsStoredWhenTheTimeComes)
{
    device.classes->setPresent("UIViewPropertyAnimator", false);
    store("volume7", 0.75);
    launch();
    processValues.isHackedRingtoneVolume = true;
    announce("Ringtone", "ExplicitVolumeChange", 0.25f);
    store("volume7", 0.875);
    pass(0.2);
    EXPECT_EQ(systemLevel("Ringtone"), 0.875f);
}

TEST_F(AroundVolumeEvents, NewerSystemsAndThoseThatKeepTheLevelRestoreNothing)
{
    launch();
    processValues.isHackedRingtoneVolume = true;
    announce("Ringtone", "ExplicitVolumeChange", 0.25f);
    device.classes->setPresent("UIViewPropertyAnimator", false);
    processValues.isAppCallNotification = true;
    processValues.isHackedRingtoneVolume = true;
    announce("Ringtone", "ExplicitVolumeChange", 0.25f);
    pass(1);
    EXPECT_EQ(countOf("dispatch"), 0u);
}

// The other overlays.

TEST_F(AroundVolumeEvents, OtherOverlaysAreHiddenWhileTheMixerReplacesTheIndicator)
{
    device.classes->setPresent("MeliorWindow", true);
    device.classes->setPresent("ABVolumeHUDManager", true);
    store("replaceHUD", true);
    launch();
    forgetEvents();
    announce("Alarm", "Anything", 0.5f);
    const std::vector<sim::Json> driven = eventsOf("overlay");
    ASSERT_EQ(driven.size(), 3u);
    EXPECT_EQ(driven[0]["class"], "MeliorWindow");
    EXPECT_EQ(driven[0]["value"], true);
    EXPECT_EQ(driven[1]["action"], "hideImmediatelyIfPossible");
    EXPECT_EQ(driven[2]["class"], "ABVolumeHUDManager");
    EXPECT_EQ(driven[2]["value"], true);
    EXPECT_EQ(events.front()["event"], "overlay") << "before anything else";
}

TEST_F(AroundVolumeEvents, OtherOverlaysAreShownOtherwiseForConsumedAnnouncementsToo)
{
    device.classes->setPresent("MeliorWindow", true);
    device.classes->setPresent("ABVolumeHUDManager", true);
    launch();
    processValues.isHackedRingtoneVolume = true;
    forgetEvents();
    announce("Alarm", "Anything", 0.5f);
    const std::vector<sim::Json> driven = eventsOf("overlay");
    ASSERT_EQ(driven.size(), 2u);
    EXPECT_EQ(driven[0]["value"], false);
    EXPECT_EQ(driven[1]["value"], false);
}

TEST_F(AroundVolumeEvents, EitherOverlayIsDrivenWithoutTheOther)
{
    for (const char* present : { "MeliorWindow", "ABVolumeHUDManager" }) {
        device.classes->setPresent("MeliorWindow", false);
        device.classes->setPresent("ABVolumeHUDManager", false);
        device.classes->setPresent(present, true);
        if (!processValues.sharedController)
            launch();
        forgetEvents();
        announce("Alarm", "Anything", 0.5f);
        ASSERT_EQ(countOf("overlay"), 1u) << present;
        EXPECT_EQ(eventsOf("overlay")[0]["class"], present);
    }
}

TEST_F(AroundVolumeEvents, AbsentOverlaysAreNotDriven)
{
    launch();
    announce("Alarm", "Anything", 0.5f);
    EXPECT_EQ(countOf("overlay"), 0u);
}

// The seed of the category.

TEST_F(AroundVolumeEvents, TheFirstCallWithANamePointerSeedsTheCategory)
{
    launch();
    device.audio->activeCategory = "Ringtone";
    device.home->getActiveCategoryVolume(false);
    EXPECT_FALSE(processValues.globalCategory) << "a null pointer does not spend the seed";
    device.home->getActiveCategoryVolume(true);
    EXPECT_EQ(processValues.globalCategory.get().view(), "Ringtone");
    device.audio->activeCategory = "Alarm";
    device.home->getActiveCategoryVolume(true);
    EXPECT_EQ(processValues.globalCategory.get().view(), "Ringtone") << "there is one seed in the life of a process";
    EXPECT_EQ(countOf("activeVolume"), 3u);
}

TEST_F(AroundVolumeEvents, TheSeedOverwritesTheCategoryOfEarlierAnnouncementsOnce)
{
    launch();
    announce("Alarm", "Anything", 0.5f);
    device.home->getActiveCategoryVolume(true);
    EXPECT_EQ(processValues.globalCategory.get().view(), "Audio/Video");
    announce("Alarm", "Anything", 0.5f);
    device.home->getActiveCategoryVolume(true);
    EXPECT_EQ(processValues.globalCategory.get().view(), "Alarm");
}

TEST_F(AroundVolumeEvents, TheHooksHandTheHostsAnswersBack)
{
    launch();
    HostObject* const audio = AVSystemController::sharedAVSystemController().get();
    float level = 0;
    id name = nullptr;
    EXPECT_TRUE((sim::send<bool, float*, id*, id>(
        audio, sim::selector("getActiveCategoryVolume:andName:fallbackCategory:"), &level, &name, nullptr)));
    EXPECT_EQ(level, 0.5f);
    EXPECT_EQ(retained<NSString>(name).view(), "Audio/Video");
    EXPECT_TRUE(AVSystemController::sharedAVSystemController().setVolumeTo(0.25f, text("Alarm")));
}

TEST_F(AroundVolumeEvents, TheCategorySurvivesTheStringThatNamedIt)
{
    launch();
    device.home->getActiveCategoryVolume(true);
    for (int i = 0; i < 100; ++i)
        pass(0.1);
    EXPECT_EQ(processValues.globalCategory.get().view(), "Audio/Video");
}

// Programmatic volume.

TEST_F(AroundVolumeEvents, EveryProgrammaticCallRaisesTheManualFlag)
{
    launch();
    device.home->setVolume("Alarm", 0.25f);
    EXPECT_TRUE(processValues.manualSet);
    EXPECT_EQ(systemLevel("Alarm"), 0.25f);
    EXPECT_EQ(countOf("setVolume"), 1u);
}

TEST_F(AroundVolumeEvents, WithEchoTheSystemsAnswerToTheMixerFindsTheRememberedLevel)
{
    device.audio->echo = true;
    launch();
    forgetEvents();
    device.audio->store("Audio/Video", 0.75f);
    announce("Audio/Video", "RouteChange", 0.75f);
    EXPECT_EQ(countOf("setVolume"), 1u);
    EXPECT_EQ(countOf("announced"), 2u);
    EXPECT_TRUE(processValues.manualSet) << "the echo brings the remembered level: no new one";
}

} // namespace
} // namespace panotra
