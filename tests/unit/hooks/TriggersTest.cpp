/// Showing and dismissing on demand: the shake, the report of a shake, and the state of the screen.
#include "tests/support/MixerTest.h"

namespace panotra {
namespace {

struct Triggers : testing::MixerTest {
    Triggers() { storeLevels(0.5); }

    void shake()
    {
        device.home->motionBegan(1);
        pass();
    }
    void reportShake()
    {
        device.home->notify("net.qorvath.panotra.uikitshaken");
        pass();
    }
    void changeScreenTo(std::uint64_t state)
    {
        device.darwin->setState("com.apple.springboard.screenchanged", state);
        device.home->notify("com.apple.springboard.screenchanged");
        pass();
    }
};

// The shake.

TEST_F(Triggers, AShakePresentsTheMixerForGoodAndTheNextOneDismissesIt)
{
    store("handleShake", true);
    store("replaceHUD", true);
    launch();
    shake();
    EXPECT_TRUE(controller().window());
    EXPECT_TRUE(processValues.presentedViaActivator);
    pass(100);
    EXPECT_TRUE(controller().window());
    shake();
    EXPECT_TRUE(processValues.presentedViaActivator) << "only the tear-down lowers it";
    pass(0.5);
    EXPECT_FALSE(controller().window());
    EXPECT_FALSE(processValues.presentedViaActivator);
}

TEST_F(Triggers, AShakeDismissesAMixerThatAButtonPresented)
{
    store("handleShake", true);
    store("replaceHUD", true);
    launch();
    device.home->press(sim::Button::Up);
    device.home->release(sim::Button::Up);
    pass(1);
    EXPECT_TRUE(controller().window());
    shake();
    pass(0.5);
    EXPECT_FALSE(controller().window());
}

TEST_F(Triggers, AShakeDuringTheFadeOutOnlyDismissesAgain)
{
    store("handleShake", true);
    launch();
    shake();
    pass(1);
    shake();
    pass(0.2);
    shake();
    pass(0.5);
    EXPECT_FALSE(controller().window()) << "the window is there until it is torn down";
}

TEST_F(Triggers, WithoutTheSettingAShakeDoesNothing)
{
    launch();
    forgetEvents();
    shake();
    EXPECT_TRUE(events.empty());
}

TEST_F(Triggers, OnlyEventsOfMotionCount)
{
    store("handleShake", true);
    launch();
    for (const std::int64_t type : { 0, 2, 3, -1 }) {
        forgetEvents();
        device.home->motionBegan(type);
        EXPECT_TRUE(events.empty()) << type;
    }
    EXPECT_FALSE(controller().window());
}

TEST_F(Triggers, NoMotionIsEverPassedOnInAnyProcess)
{
    for (const char* const process : { "com.apple.springboard", "com.apple.mobilesafari" }) {
        device.bundleIdentifier = process;
        if (process == std::string("com.apple.springboard"))
            launch();
        forgetEvents();
        device.home->motionBegan(0);
        shake();
        EXPECT_EQ(countOf("motion"), 0u) << process;
    }
}

TEST_F(Triggers, InAnotherProcessAShakePostsNothingSinceNobodyEverAllowsItThere)
{
    device.bundleIdentifier = "com.apple.mobilesafari";
    store("handleShake", true);
    launch();
    forgetEvents();
    shake();
    EXPECT_TRUE(events.empty());
}

TEST_F(Triggers, IfItWereAllowedThereItWouldPostTheSiblingsName)
{
    device.bundleIdentifier = "com.apple.mobilesafari";
    load();
    processValues.handleShake = true;
    forgetEvents();
    shake();
    ASSERT_EQ(events.size(), 1u);
    EXPECT_EQ(events[0]["event"], "post");
    EXPECT_EQ(events[0]["name"], "net.qorvath.brevane2.uikitshaken");
}

TEST_F(Triggers, TheHomeScreenDoesNotObserveThatName)
{
    store("handleShake", true);
    launch();
    forgetEvents();
    device.home->notify("net.qorvath.brevane2.uikitshaken");
    EXPECT_TRUE(events.empty());
}

// The report of a shake.

TEST_F(Triggers, AReportedShakeReloadsTheSettingsAndTogglesWhateverTheySay)
{
    launch();
    store("activeStyle", 1);
    forgetEvents();
    reportShake();
    EXPECT_EQ(events.at(0)["event"], "synchronize") << "the settings come first";
    EXPECT_EQ(processValues.activeStyle, 1);
    EXPECT_FALSE(processValues.handleShake);
    EXPECT_TRUE(controller().window());
    EXPECT_TRUE(processValues.presentedViaActivator);
    EXPECT_FALSE(controller().valueForKey("_blurBackdropView")) << "built with the settings just read";
    pass(1);
    reportShake();
    pass(0.5);
    EXPECT_FALSE(controller().window());
}

// The screen.

TEST_F(Triggers, TwoStatesOfTheScreenRemoveTheMixer)
{
    for (const std::uint64_t state : { 0u, 9u }) {
        show(panel);
        pass(1);
        forgetEvents();
        changeScreenTo(state);
        EXPECT_EQ(durations().at(0), 0.4) << state;
        EXPECT_EQ(durations().size(), 3u) << "and it is laid out all the same: the turn and the sliders' rest";
        pass(0.5);
        EXPECT_FALSE(controller().window());
    }
}

TEST_F(Triggers, AnyOtherStateOnlyLaysItOut)
{
    show(panel);
    for (const std::uint64_t state :
        { std::uint64_t(1), std::uint64_t(8), std::uint64_t(10), ~std::uint64_t(0), std::uint64_t(1) << 32 }) {
        pass(1);
        device.screen->orientation = device.screen->orientation == 1 ? 3 : 1;
        forgetEvents();
        changeScreenTo(state);
        EXPECT_EQ(durations(), (std::vector<double> { 0.3, 0.15 })) << state;
        EXPECT_EQ(processValues.previousOrientation, device.screen->orientation);
    }
    pass(1);
    EXPECT_TRUE(controller().window());
}

TEST_F(Triggers, WithoutAMixerTheScreenLaysNothingOut)
{
    launch();
    forgetEvents();
    changeScreenTo(1);
    EXPECT_TRUE(events.empty());
    EXPECT_TRUE(processValues.justCreated) << "the first layout is not spent";
    changeScreenTo(9);
    EXPECT_EQ(durations(), (std::vector<double> { 0.4 })) << "dismissing nothing is harmless";
}

} // namespace
} // namespace panotra
