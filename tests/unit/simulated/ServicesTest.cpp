/// The home screen's services as the logic sees them.
#include "platform/AVSystemController.h"
#include "platform/Dispatch.h"
#include "platform/LAActivator.h"
#include "platform/Notify.h"
#include "platform/SpringBoard.h"
#include "platform/UIEvent.h"
#include "platform/VolumeOverlays.h"
#include "tests/unit/simulated/SeamTest.h"

namespace panotra {
namespace {

using ::testing::ElementsAre;

class ServicesTest : public SeamTest {
protected:
    static NSString text(const char* utf8) { return NSString::stringWithUTF8String(utf8); }
};

TEST_F(ServicesTest, LevelsAreReadAndSetThroughTheAudioService)
{
    const AVSystemController service = AVSystemController::sharedAVSystemController();
    float level = 0;
    EXPECT_TRUE(service.setVolumeTo(0.25f, text("Ringtone")));
    EXPECT_TRUE(service.getVolume(&level, text("Ringtone")));
    EXPECT_EQ(level, 0.25f);
    EXPECT_TRUE(service.getVolume(&level, text("Ambient")));
    EXPECT_EQ(level, 0);
    level = 0.125f;
    EXPECT_FALSE(service.getVolume(&level, nullptr));
    EXPECT_EQ(level, 0.125f);
}

TEST_F(ServicesTest, TheActiveRouteIsAnAttributeOrNull)
{
    const AVSystemController service = AVSystemController::sharedAVSystemController();
    device.audio->route = "HeadphonesBT";
    EXPECT_TRUE(NSString::checked(service.attributeForKey(AVController_ActiveAudioRouteAttribute))
                    .isEqualToString("HeadphonesBT"));
    EXPECT_FALSE(service.attributeForKey("SomethingElse"));
    device.audio->route.reset();
    EXPECT_FALSE(service.attributeForKey(AVController_ActiveAudioRouteAttribute));
}

TEST_F(ServicesTest, TheSpringBoardAnswersForTheHomeScreen)
{
    device.screen->orientation = 4;
    device.screen->statusBarHidden = true;
    device.home->rotationDuration = 0.5;
    EXPECT_EQ(UIApplication::sharedApplication().activeInterfaceOrientation(), 4);
    EXPECT_EQ(UIApplication::sharedApplication().statusBar().center(), (CGPoint { 333.5, 10 }));
    EXPECT_EQ(SpringBoard::sharedApplication().windowRotationDuration(), 0.5);
    EXPECT_TRUE(SpringBoard::sharedApplication().isSpringBoardStatusBarHidden());
}

TEST_F(ServicesTest, WithoutTheSpringBoardNothingTakesTimeAndTheStatusBarIsShown)
{
    device.screen->statusBarHidden = true;
    device.screen->orientation = 3;
    lack("SpringBoard");
    EXPECT_EQ(SpringBoard::sharedApplication().windowRotationDuration(), 0);
    EXPECT_FALSE(SpringBoard::sharedApplication().isSpringBoardStatusBarHidden());
    EXPECT_EQ(UIApplication::sharedApplication().activeInterfaceOrientation(), 3);
}

TEST_F(ServicesTest, TheAssistantIsDrivenUnderItsNames)
{
    device.home->assistantVisible = true;
    EXPECT_TRUE(AXSpringBoardServer::server().isSiriVisible());
    AXSpringBoardServer::server().openSiri();
    SBAssistantController::sharedInstance().window().setHidden(true);
    SBAssistantController::sharedInstance().window().setHidden(false);
    AXSpringBoardServer::server().dismissSiri();
    EXPECT_EQ(events,
        (std::vector<sim::Json> {
            { { "t", 0.0 }, { "event", "assistant" }, { "action", "openSiri" } },
            { { "t", 0.0 }, { "event", "assistant" }, { "action", "hideWindow" } },
            { { "t", 0.0 }, { "event", "assistant" }, { "action", "dismissSiri" } },
        }));
    EXPECT_TRUE(device.home->assistantVisible);
    lack("AXSpringBoardServer");
    EXPECT_FALSE(AXSpringBoardServer::server().isSiriVisible());
}

TEST_F(ServicesTest, OtherOverlaysAreDrivenOnlyIfTheyAreThere)
{
    MeliorWindow::sharedInstance().firstSubview().setHidden(true);
    ABVolumeHUDManager::sharedManager().visibilityManager().hideImmediatelyIfPossible();
    ABVolumeHUDManager::sharedManager().targetView().setHidden(true);
    EXPECT_TRUE(events.empty());
    device.classes->setPresent("MeliorWindow", true);
    device.classes->setPresent("ABVolumeHUDManager", true);
    MeliorWindow::sharedInstance().firstSubview().setHidden(true);
    ABVolumeHUDManager::sharedManager().visibilityManager().hideImmediatelyIfPossible();
    ABVolumeHUDManager::sharedManager().targetView().setHidden(false);
    EXPECT_EQ(events,
        (std::vector<sim::Json> {
            { { "t", 0.0 }, { "event", "overlay" }, { "class", "MeliorWindow" }, { "action", "setHidden" },
                { "value", true } },
            { { "t", 0.0 }, { "event", "overlay" }, { "class", "ABVolumeHUDManager" },
                { "action", "hideImmediatelyIfPossible" } },
            { { "t", 0.0 }, { "event", "overlay" }, { "class", "ABVolumeHUDManager" }, { "action", "setHidden" },
                { "value", false } },
        }));
}

TEST_F(ServicesTest, AListenerRegistersWithTheGestureFrameworkIfItIsThere)
{
    LAActivator::sharedInstance().registerListener(text("listener"), "net.example.present");
    EXPECT_THAT(
        events, ElementsAre(sim::Json { { "t", 0.0 }, { "event", "listener" }, { "name", "net.example.present" } }));
    lack("LAActivator");
    EXPECT_FALSE(LAActivator::sharedInstance());
}

TEST_F(ServicesTest, AHandledGestureIsReportedANeglectedOneIsNot)
{
    const auto event = adopt<LAEvent>(device.classes->make<sim::GestureEvent>("LAEvent", "net.example.present"));
    event.setHandled(false);
    EXPECT_TRUE(events.empty());
    event.setHandled(true);
    EXPECT_THAT(eventNames(), ElementsAre("handled"));
}

TEST_F(ServicesTest, EventsAndSoundsHaveTypes)
{
    EXPECT_EQ(adopt<UIEvent>(device.classes->make<sim::Event>("UIEvent", UIEventTypeMotion)).type(), 1);
    const auto sound = adopt<SBSound>(device.classes->make<sim::Sound>("SBUISound", 5));
    EXPECT_TRUE(sound.respondsToSelector("soundType"));
    EXPECT_EQ(sound.soundType(), 5);
    EXPECT_FALSE(adopt<SBSound>(device.classes->make<HostObject>("NSObject")).respondsToSelector("soundType"));
}

TEST_F(ServicesTest, BlocksAreDispatchedInNanoseconds)
{
    std::vector<double> times;
    dispatch_after(100'000'000, [&] { times.push_back(device.runLoop->now()); });
    EXPECT_EQ(events.back()["delay"], 0.1);
    device.runLoop->wait(1);
    EXPECT_THAT(times, ElementsAre(0.1));
}

TEST_F(ServicesTest, DarwinNotificationsAreRegisteredObservedReadAndPosted)
{
    static int times = 0;
    times = 0;
    std::int32_t token = -1;
    notify_register_check("net.example.shake", &token);
    device.darwin->setState("net.example.shake", 7);
    EXPECT_EQ(notify_get_state(token), 7u);
    addDarwinObserver("net.example.settings", []() noexcept { ++times; });
    device.home->notify("net.example.settings");
    notify_post("net.example.settings");
    EXPECT_EQ(times, 2);
    EXPECT_THAT(eventNames(), ElementsAre("register", "observe", "post"));
}

} // namespace
} // namespace panotra
