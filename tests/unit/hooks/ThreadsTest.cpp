/// Hooked methods that the host calls on a thread of its own: what must answer answers there, everything else waits for
/// the main thread.
#include "hooks/HookedMethod.h"
#include "simulator/device/ClassTable.h"
#include "simulator/device/Values.h"
#include "tests/support/MixerTest.h"

#include <functional>
#include <thread>

namespace panotra {
namespace {

struct Threads : testing::MixerTest {
    Threads()
    {
        storeLevels(0.5);
        store("replaceHUD", true);
        launch();
        forgetEvents();
    }

    /// The device is one thread's at a time: this one waits meanwhile.
    static void elsewhere(const std::function<void()>& work) { std::thread(work).join(); }

    /// What the main queue was left to do has been done.
    std::vector<std::string> namesAfterTheTurn(const std::vector<std::string>& names)
    {
        pass();
        return order(names);
    }
};

TEST_F(Threads, AnAnnouncementWaitsForTheMainThreadAndIsHandledThereInOrder)
{
    elsewhere([this] { device.home->announce("Audio/Video", "ExplicitVolumeChange", 0.25f); });
    EXPECT_TRUE(events.empty()) << "nothing of ours and nothing of the host's";
    EXPECT_FALSE(controller().window());
    EXPECT_EQ(namesAfterTheTurn({ "announced", "windowShown" }).back(), "announced");
    EXPECT_TRUE(controller().window());
    EXPECT_EQ(stored("volume0").get<float>(), 0.25f);
}

TEST_F(Threads, TheAnnouncementIsKeptUntilThenAndLetGoOfAfterwards)
{
    auto* const announcement = device.classes->make<sim::Dictionary>("NSDictionary");
    announcement->adopt("AudioCategory", device.classes->make<sim::String>("NSString", "Ringtone"));
    HostObject* const audio = device.home->shared("AVSystemController");
    const std::size_t before = audio->references;
    elsewhere([=] { sim::send<void>(audio, sim::selector("postEffectiveVolumeNotification:"), announcement); });
    EXPECT_EQ(announcement->references, 2u);
    EXPECT_EQ(audio->references, before + 1);
    pass();
    EXPECT_EQ(announcement->references, 1u);
    EXPECT_EQ(audio->references, before);
    EXPECT_EQ(eventsOf("announced").at(0)["category"], "Ringtone");
    sim::release(announcement);
}

TEST_F(Threads, EveryOtherHookWithoutAnAnswerWaitsAsAWhole)
{
    const std::vector<std::pair<const char*, std::function<void()>>> waiting {
        { "ringer",
            [this] {
                device.home->setRingerMuted(true);
            } },
        { "reoriented",
            [this] {
                device.home->reorientHUD(true);
            } },
        { "statusBarFrame",
            [this] {
                device.home->setStatusBarFrame("UIStatusBar", 0, 0, 320, 20);
            } },
        { "statusBarFrame",
            [this] {
                device.home->setStatusBarFrame("_UIStatusBar", 0, 0, 320, 20);
            } },
        { "launched",
            [this] {
                device.home->finishLaunching();
            } },
    };
    device.classes->setPresent("_UIStatusBar", true);
    for (const auto& [event, call] : waiting) {
        forgetEvents();
        elsewhere(call);
        EXPECT_TRUE(events.empty()) << event;
        pass();
        EXPECT_EQ(countOf(event), 1u) << event;
    }
}

TEST_F(Threads, TheIndicatorsGateIsAskedOnTheMainThread)
{
    const auto presentBoth = [this] {
        device.home->presentHUD(1.5);
        device.home->presentVolumeHUD(2, 0.5f);
    };
    elsewhere(presentBoth);
    pass();
    EXPECT_EQ(countOf("indicator"), 0u) << "the mixer replaces it";
    store("replaceHUD", false);
    reloadSettings();
    elsewhere(presentBoth);
    EXPECT_EQ(countOf("indicator"), 0u);
    pass();
    const auto shown = eventsOf("indicator");
    ASSERT_EQ(shown.size(), 2u);
    EXPECT_EQ(shown[0]["delay"], 1.5);
    EXPECT_EQ(shown[1]["mode"], 2);
    EXPECT_EQ(shown[1]["level"], 0.5);
}

TEST_F(Threads, AShakeWaits)
{
    store("handleShake", true);
    reloadSettings();
    elsewhere([this] { device.home->motionBegan(1); });
    EXPECT_FALSE(controller().window());
    pass();
    EXPECT_TRUE(controller().window());
}

TEST_F(Threads, AVolumeIsSetAtOnceAndTheMixerLearnsOfItLater)
{
    processValues.manualSet = false;
    elsewhere([this] { device.home->setVolume("Alarm", 0.75f); });
    EXPECT_EQ(systemLevel("Alarm"), 0.75f);
    EXPECT_FALSE(processValues.manualSet);
    pass();
    EXPECT_TRUE(processValues.manualSet);
}

TEST_F(Threads, WhatTheMixerLearnsComesBeforeTheAnnouncementOfTheSameVolume)
{
    elsewhere([this] {
        device.home->setVolume("Audio/Video", 0.75f);
        device.home->announce("Audio/Video", "ExplicitVolumeChange", 0.75f);
    });
    pass();
    EXPECT_FALSE(processValues.manualSet) << "the announcement clears the flag: it came last";
}

TEST_F(Threads, ASoundIsPlayedAtOnceAndTheRingerIsBorrowedLater)
{
    elsewhere([this] { device.home->playSound(1); });
    EXPECT_EQ(countOf("sound"), 1u);
    EXPECT_EQ(countOf("setVolume"), 0u);
    EXPECT_FALSE(processValues.isHackedRingtoneVolume);
    pass();
    EXPECT_EQ(eventsOf("setVolume").at(0)["category"], "Ringtone");
    EXPECT_TRUE(processValues.isHackedRingtoneVolume);
}

TEST_F(Threads, TheActiveVolumeIsAnsweredAtOnceAndSeedsTheCategoryLater)
{
    device.audio->activeCategory = "PhoneCall";
    elsewhere([this] { device.home->getActiveCategoryVolume(true); });
    EXPECT_EQ(countOf("activeVolume"), 1u);
    EXPECT_FALSE(processValues.globalCategoryWasSeeded);
    pass();
    EXPECT_TRUE(processValues.globalCategoryWasSeeded);
    EXPECT_TRUE(processValues.globalCategory.get().isEqualToString("PhoneCall"));
}

TEST_F(Threads, OnTheMainThreadNothingIsLeftForLater)
{
    onMainThread([] { processValues.manualSet = true; });
    EXPECT_TRUE(processValues.manualSet);
    device.home->announce("Audio/Video", "ExplicitVolumeChange", 0.25f);
    EXPECT_EQ(countOf("announced"), 1u) << "before any turn of the run loop";
}

namespace {

bool refuseAndLeavePoison(id, SEL, float*, id* name, id)
{
    *name = reinterpret_cast<id>(std::uintptr_t { 0xdead });
    return false;
}

} // namespace

TEST_F(Threads, ANameWithoutAnAnswerIsNotLookedAtAndSpendsTheSeed)
{
    device.home->announce("Alarm", "RouteChange", 0.5f);
    previous.getActiveCategoryVolume.implementation = reinterpret_cast<IMP>(refuseAndLeavePoison);
    device.home->getActiveCategoryVolume(true);
    EXPECT_TRUE(processValues.globalCategoryWasSeeded);
    EXPECT_TRUE(processValues.globalCategory.get().isEqualToString("Alarm")) << "nothing took its place";
}

} // namespace
} // namespace panotra
