/// The events from outside: what the host's own methods do, and what hooks see.
#include "tests/unit/device/DeviceTest.h"

namespace panotra::sim {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class HomeScreenEventsTest : public DeviceTest {
protected:
    void lack(const char* className) { device.classes->setPresent(className, false); }
    /// The last event without its time and its name.
    Json lastFields() const
    {
        Json fields = events.back();
        fields.erase("t");
        fields.erase("event");
        return fields;
    }
};

TEST_F(HomeScreenEventsTest, EveryEventReachesTheHostsOwnMethod)
{
    device.home->finishLaunching();
    EXPECT_THAT(eventNames(), ElementsAre("launched"));

    device.home->announce("Alarm", "RouteChange", 0.7f);
    EXPECT_EQ(events.back()["event"], "announced");
    EXPECT_EQ(
        lastFields(), (Json { { "category", "Alarm" }, { "reason", "RouteChange" }, { "level", double { 0.7f } } }));

    device.home->getActiveCategoryVolume(true);
    EXPECT_EQ(events.back()["event"], "activeVolume");
    EXPECT_EQ(lastFields(), (Json { { "named", true } }));
    device.home->getActiveCategoryVolume(false);
    EXPECT_EQ(lastFields(), (Json { { "named", false } }));

    device.home->setVolume("Alarm", 0.3f);
    EXPECT_EQ(events.back()["event"], "setVolume");
    EXPECT_EQ(lastFields(), (Json { { "category", "Alarm" }, { "level", double { 0.3f } } }));
    EXPECT_EQ(device.audio->level("Alarm"), 0.3f);

    device.home->presentHUD(1.5);
    EXPECT_EQ(events.back()["event"], "indicator");
    EXPECT_EQ(lastFields(), (Json { { "by", "presentHUDView:autoDismissWithDelay:" }, { "delay", 1.5 } }));
    device.home->presentVolumeHUD(-3, 0.5f);
    EXPECT_EQ(events.back()["event"], "indicator");
    EXPECT_EQ(lastFields(), (Json { { "by", "_presentVolumeHUDWithMode:volume:" }, { "mode", -3 }, { "level", 0.5 } }));

    device.home->reorientHUD(true);
    EXPECT_EQ(events.back()["event"], "reoriented");
    EXPECT_EQ(lastFields(), (Json { { "flag", true } }));

    device.home->setStatusBarFrame("_UIStatusBar", 1, 2, 3, 4);
    EXPECT_EQ(events.back()["event"], "statusBarFrame");
    EXPECT_EQ(lastFields(), (Json { { "class", "_UIStatusBar" }, { "frame", { 1.0, 2.0, 3.0, 4.0 } } }));

    device.home->setRingerMuted(true);
    EXPECT_EQ(events.back()["event"], "ringer");
    EXPECT_EQ(lastFields(), (Json { { "muted", true } }));

    device.home->playSound(5);
    EXPECT_EQ(events.back()["event"], "sound");
    EXPECT_EQ(lastFields(), (Json { { "type", 5 } }));
    device.home->playSound(std::nullopt);
    EXPECT_EQ(lastFields(), Json::parse(R"({"type": null})"));

    device.home->motionBegan(1);
    EXPECT_EQ(events.back()["event"], "motion");
    EXPECT_EQ(lastFields(), (Json { { "type", 1 } }));
}

TEST_F(HomeScreenEventsTest, AnAnnouncementLeavesAbsentKeysOut)
{
    device.home->announce(std::nullopt, std::nullopt, std::nullopt);
    EXPECT_EQ(lastFields(), Json::parse(R"({"category": null, "reason": null, "level": null})"));
}

TEST_F(HomeScreenEventsTest, AnEventOnALackingClassDoesNothingAndReportsNothing)
{
    for (const char* const name : { "SpringBoard", "AVSystemController", "SBHUDController", "VolumeControl",
             "UIStatusBar", "_UIStatusBar", "SBMediaController", "SBSoundController", "UIResponder", "LAActivator" })
        lack(name);
    device.home->finishLaunching();
    device.home->announce("Alarm", "RouteChange", 0.7f);
    device.home->getActiveCategoryVolume(true);
    device.home->setVolume("Alarm", 0.25f);
    device.home->presentHUD(1);
    device.home->presentVolumeHUD(0, 0.5f);
    device.home->reorientHUD(true);
    device.home->setStatusBarFrame("UIStatusBar", 1, 2, 3, 4);
    device.home->setStatusBarFrame("_UIStatusBar", 1, 2, 3, 4);
    device.home->setRingerMuted(true);
    device.home->playSound(0);
    device.home->motionBegan(1);
    device.home->sendActivatorEvent("anything");
    device.home->askActivator("group", "anything");
    EXPECT_THAT(events, IsEmpty());
    EXPECT_EQ(device.audio->level("Alarm"), 0.5f);
}

TEST_F(HomeScreenEventsTest, APressMovesTheLevelAnnouncesItAndShowsTheIndicator)
{
    device.home->volumeMode = 2;
    device.home->press(Button::Up);
    EXPECT_TRUE(device.home->volumeUpIsDown);
    EXPECT_FALSE(device.home->volumeDownIsDown);
    EXPECT_EQ(events,
        (std::vector<Json> {
            { { "t", 0.0 }, { "event", "announced" }, { "category", "Audio/Video" },
                { "reason", "ExplicitVolumeChange" }, { "level", 0.5625 } },
            { { "t", 0.0 }, { "event", "indicator" }, { "by", "_presentVolumeHUDWithMode:volume:" }, { "mode", 2 },
                { "level", 0.5625 } },
        }));
    device.home->release(Button::Up);
    EXPECT_FALSE(device.home->volumeUpIsDown);
    device.home->press(Button::Down);
    EXPECT_TRUE(device.home->volumeDownIsDown);
    EXPECT_EQ(device.audio->level("Audio/Video"), 0.5f);
}

TEST_F(HomeScreenEventsTest, APressAddsAndClampsAsADoubleThenRounds)
{
    device.audio->activeCategory = "Alarm";
    device.audio->store("Alarm", 0.1f);
    device.home->press(Button::Up);
    EXPECT_EQ(device.audio->level("Alarm"), static_cast<float>(double { 0.1f } + 0.0625));
    device.audio->store("Alarm", 0.95f);
    device.home->press(Button::Up);
    EXPECT_EQ(device.audio->level("Alarm"), 1.0f);
    device.audio->store("Alarm", 0.05f);
    device.home->press(Button::Down);
    EXPECT_EQ(device.audio->level("Alarm"), 0.0f);
    device.audio->store("Alarm", 3.0f);
    device.home->press(Button::Down);
    EXPECT_EQ(device.audio->level("Alarm"), 1.0f);
}

TEST_F(HomeScreenEventsTest, APressInACategoryWithoutALevelStartsFromZero)
{
    device.audio->activeCategory = "Ambient";
    device.home->press(Button::Up);
    EXPECT_EQ(device.audio->level("Ambient"), 0.0625f);
    EXPECT_TRUE(device.audio->hasLevel("Ambient"));
}

TEST_F(HomeScreenEventsTest, WithoutTheAudioServiceAPressMovesTheLevelAndShowsTheIndicatorOnly)
{
    lack("AVSystemController");
    device.home->press(Button::Up);
    EXPECT_THAT(eventNames(), ElementsAre("indicator"));
    EXPECT_EQ(device.audio->level("Audio/Video"), 0.5625f);
}

TEST_F(HomeScreenEventsTest, WithoutTheVolumeControlAPressAnnouncesOnly)
{
    lack("VolumeControl");
    device.home->press(Button::Up);
    EXPECT_THAT(eventNames(), ElementsAre("announced"));
}

TEST_F(HomeScreenEventsTest, WithoutEchoASetLevelIsNotAnnounced)
{
    device.home->setVolume("Alarm", 0.25f);
    device.runLoop->turn();
    EXPECT_THAT(eventNames(), ElementsAre("setVolume"));
}

TEST_F(HomeScreenEventsTest, WithEchoADifferentLevelIsAnnouncedAsDeferredWork)
{
    device.audio->echo = true;
    device.home->setVolume("Alarm", 0.25f);
    EXPECT_THAT(eventNames(), ElementsAre("setVolume"));
    EXPECT_TRUE(device.runLoop->pending().empty());
    device.runLoop->turn();
    EXPECT_THAT(eventNames(), ElementsAre("setVolume", "announced"));
    EXPECT_EQ(
        lastFields(), (Json { { "category", "Alarm" }, { "reason", "ExplicitVolumeChange" }, { "level", 0.25 } }));
    device.home->setVolume("Alarm", 0.25f);
    device.runLoop->turn();
    EXPECT_THAT(eventNames(), ElementsAre("setVolume", "announced", "setVolume"));
}

TEST_F(HomeScreenEventsTest, ACategoryWithoutALevelDiffersFromEveryLevelForTheEcho)
{
    device.audio->echo = true;
    device.home->setVolume("Ambient", 0.0f);
    device.runLoop->turn();
    EXPECT_THAT(eventNames(), ElementsAre("setVolume", "announced"));
    EXPECT_TRUE(device.audio->hasLevel("Ambient"));
}

TEST_F(HomeScreenEventsTest, ANullCategoryStoresNothingAndEchoesNothing)
{
    device.audio->echo = true;
    const auto levels = device.audio->levels;
    HostObject* const nothing = nullptr;
    EXPECT_TRUE(
        send<bool>(device.home->shared("AVSystemController"), selector("setVolumeTo:forCategory:"), 0.25f, nothing));
    device.runLoop->turn();
    EXPECT_THAT(eventNames(), ElementsAre("setVolume"));
    EXPECT_EQ(lastFields(), Json::parse(R"({"category": null, "level": 0.25})"));
    EXPECT_EQ(device.audio->levels, levels);
}

TEST_F(HomeScreenEventsTest, TheActiveCategoryAndItsLevelAreWrittenWhereTheyWereAskedFor)
{
    device.audio->activeCategory = "Ringtone";
    device.audio->store("Ringtone", 0.75f);
    float level = 0;
    HostObject* name = nullptr;
    HostObject* const fallback = nullptr;
    EXPECT_TRUE(send<bool>(device.home->shared("AVSystemController"),
        selector("getActiveCategoryVolume:andName:fallbackCategory:"), &level, &name, fallback));
    EXPECT_EQ(level, 0.75f);
    ASSERT_NE(textOf(name), nullptr);
    EXPECT_EQ(*textOf(name), "Ringtone");
}

TEST_F(HomeScreenEventsTest, AnUntypedSoundHasNoSoundType)
{
    static bool responds = false;
    HostClass& controller = *device.classes->find("SBSoundController");
    controller.methods[selector("playSound:environments:completion:")]
        = implementation(+[](HostObject*, const HostSelector*, HostObject* sound, std::uint64_t, HostObject*) -> bool {
              responds = sound->isa->find(selector("soundType")) != nullptr;
              return true;
          });
    device.home->playSound(0);
    EXPECT_TRUE(responds);
    device.home->playSound(std::nullopt);
    EXPECT_FALSE(responds);
}

TEST_F(HomeScreenEventsTest, ScreensWithoutRealDisplayBoundsDoNotAnswerTheQuestion)
{
    const HostSelector* const question = selector("_realDisplayBounds");
    HostObject* const screen = device.home->mainScreen();
    EXPECT_EQ(send<Rect>(screen, question), (Rect { 0, 0, 750, 1334 }));
    device.screen->hasRealDisplayBounds = false;
    EXPECT_EQ(device.home->mainScreen(), screen);
    EXPECT_EQ(screen->isa->find(question), nullptr);
    EXPECT_EQ(send<Rect>(screen, selector("_referenceBounds")), (Rect { 0, 0, 375, 667 }));
    device.screen->hasRealDisplayBounds = true;
    EXPECT_NE(device.home->mainScreen()->isa->find(question), nullptr);
}

TEST_F(HomeScreenEventsTest, TheScreensBoundsTurnWithTheOrientation)
{
    HostObject* const screen = device.home->mainScreen();
    EXPECT_EQ(send<Rect>(screen, selector("bounds")), (Rect { 0, 0, 375, 667 }));
    device.screen->orientation = 4;
    EXPECT_EQ(send<Rect>(screen, selector("bounds")), (Rect { 0, 0, 667, 375 }));
    EXPECT_EQ(send<double>(screen, selector("scale")), 2);
}

TEST_F(HomeScreenEventsTest, SettingTheStatusBarsFrameDoesNotMoveIt)
{
    device.screen->orientation = 3;
    device.home->setStatusBarFrame("UIStatusBar", 0, 0, 20, 40);
    EXPECT_EQ(static_cast<View*>(device.home->statusBar())->center, (Point { 333.5, 10 }));
}

TEST_F(HomeScreenEventsTest, ThereIsAStatusBarAlsoWithoutItsClasses)
{
    lack("UIStatusBar");
    EXPECT_EQ(device.home->statusBar()->isa->name, "_UIStatusBar");
    lack("_UIStatusBar");
    EXPECT_EQ(static_cast<View*>(device.home->statusBar())->center, (Point { 187.5, 10 }));
}

TEST_F(HomeScreenEventsTest, TheApplicationIsOneObjectUnderBothItsClasses)
{
    EXPECT_EQ(device.home->shared("UIApplication"), device.home->shared("SpringBoard"));
    lack("SpringBoard");
    EXPECT_EQ(device.home->shared("SpringBoard"), nullptr);
    EXPECT_EQ(device.home->shared("UIApplication")->isa->name, "UIApplication");
}

// The gesture framework, with a listener that answers the listener's name.

HostObject* answerName(HostObject*, const HostSelector*, HostObject*, HostObject* name)
{
    return autoreleasedString("about " + *textOf(name));
}

HostObject* answerIcon(HostObject*, const HostSelector*, HostObject*, HostObject* name, double* scale)
{
    EXPECT_EQ(*scale, 2);
    if (*textOf(name) != "known")
        return nullptr;
    ClassTable& classes = *Device::current()->classes;
    return classes.autorelease(classes.make<Data>("NSData", "12345"));
}

void receiveEvent(HostObject*, const HostSelector*, HostObject*, HostObject* event, HostObject*)
{
    send<void>(event, selector("setHandled:"), true);
}

class GestureFrameworkTest : public HomeScreenEventsTest {
protected:
    GestureFrameworkTest()
    {
        auto& methods = listener.isa->methods;
        methods[selector("activator:requiresLocalizedGroupForListenerName:")] = implementation(answerName);
        methods[selector("activator:requiresSmallIconDataForListenerName:scale:")] = implementation(answerIcon);
        methods[selector("activator:receiveEvent:forListenerName:")] = implementation(receiveEvent);
    }

    HostObject& listener = makeRecorder();
};

TEST_F(GestureFrameworkTest, BeforeAListenerRegisteredNothingReachesIt)
{
    device.home->sendActivatorEvent("known");
    device.home->askActivator("group", "known");
    EXPECT_THAT(events, IsEmpty());
}

TEST_F(GestureFrameworkTest, AfterwardsEveryNameReachesIt)
{
    device.home->registerListener(&listener, "known");
    EXPECT_EQ(events.back(), (Json { { "t", 0.0 }, { "event", "listener" }, { "name", "known" } }));
    device.home->sendActivatorEvent("unheard of");
    EXPECT_EQ(events.back(), (Json { { "t", 0.0 }, { "event", "handled" }, { "listener", "unheard of" } }));
}

TEST_F(GestureFrameworkTest, AnswersAreTextsOrNumbersOfBytes)
{
    device.home->registerListener(&listener, "known");
    device.home->askActivator("group", "known");
    EXPECT_EQ(lastFields(), (Json { { "listener", "known" }, { "question", "group" }, { "value", "about known" } }));
    device.home->askActivator("icon", "known");
    EXPECT_EQ(lastFields(), (Json { { "listener", "known" }, { "question", "icon" }, { "value", 5 } }));
    device.home->askActivator("icon", "unheard of");
    EXPECT_EQ(lastFields()["value"], nullptr);
}

TEST_F(GestureFrameworkTest, WithoutTheFrameworkNothingIsAsked)
{
    device.home->registerListener(&listener, "known");
    events.clear();
    lack("LAActivator");
    device.home->sendActivatorEvent("known");
    device.home->askActivator("group", "known");
    EXPECT_THAT(events, IsEmpty());
}

} // namespace
} // namespace panotra::sim
