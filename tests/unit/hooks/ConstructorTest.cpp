/// What loading the library installs, where, and in which order.
#include "tests/support/HomeScreenTest.h"

namespace panotra {
namespace {

using Constructor = testing::HomeScreenTest;

constexpr std::pair<const char*, const char*> hookTable[] = {
    { "UIResponder", "motionBegan:withEvent:" },
    { "SpringBoard", "applicationDidFinishLaunching:" },
    { "AVSystemController", "getActiveCategoryVolume:andName:fallbackCategory:" },
    { "AVSystemController", "postEffectiveVolumeNotification:" },
    { "AVSystemController", "setVolumeTo:forCategory:" },
    { "SBSoundController", "playSound:environments:completion:" },
    { "SBMediaController", "setRingerMuted:" },
    { "SBHUDController", "presentHUDView:autoDismissWithDelay:" },
    { "SBHUDController", "reorientHUDIfNeeded:" },
    { "VolumeControl", "_presentVolumeHUDWithMode:volume:" },
    { "UIStatusBar", "setFrame:" },
    { "_UIStatusBar", "setFrame:" },
};

TEST_F(Constructor, InstallsTwelveHooksInTableOrder)
{
    load();
    const std::vector<sim::Json> hooks = eventsOf("hook");
    ASSERT_EQ(hooks.size(), std::size(hookTable));
    for (std::size_t i = 0; i < hooks.size(); ++i) {
        EXPECT_EQ(hooks[i]["class"], hookTable[i].first);
        EXPECT_EQ(hooks[i]["method"], hookTable[i].second);
    }
}

TEST_F(Constructor, RegistersAndObservesAfterTheHooksInOrder)
{
    load();
    std::vector<std::string> names;
    for (const sim::Json& event : events) {
        if (event["event"] == "register" || event["event"] == "observe")
            names.push_back(event["event"].get<std::string>() + " " + event["name"].get<std::string>());
    }
    EXPECT_EQ(names,
        (std::vector<std::string> { "register net.qorvath.panotra.shake", "observe net.qorvath.panotra.settingschanged",
            "observe net.qorvath.brevane2.settingschanged", "register com.apple.springboard.screenchanged",
            "observe com.apple.springboard.screenchanged", "observe net.qorvath.panotra.uikitshaken" }));
    EXPECT_EQ(events.at(0)["event"], "hook");
    EXPECT_EQ(events.at(1)["event"], "register") << "the shake's token comes right after the first hook";
    EXPECT_EQ(events.size(), 18u);
}

TEST_F(Constructor, KeepsTheTwoTokens)
{
    load();
    device.darwin->setState("net.qorvath.panotra.shake", 7);
    device.darwin->setState("com.apple.springboard.screenchanged", 9);
    EXPECT_EQ(device.darwin->stateOf(processValues.shakeToken), 7u);
    EXPECT_EQ(device.darwin->stateOf(processValues.screenToken), 9u);
}

TEST_F(Constructor, InstallsOneHookAndOneRegistrationInAnyOtherProcess)
{
    device.bundleIdentifier = "com.apple.mobilesafari";
    load();
    ASSERT_EQ(events.size(), 2u);
    EXPECT_EQ(events[0]["class"], "UIResponder");
    EXPECT_EQ(events[1]["name"], "net.qorvath.panotra.shake");
    EXPECT_EQ(processValues.screenToken, -1);
}

TEST_F(Constructor, ReadsNoSettings)
{
    store("activeStyle", 1);
    load();
    EXPECT_EQ(processValues.activeStyle, 0);
    EXPECT_EQ(countOf("synchronize"), 0u);
    EXPECT_FALSE(processValues.sharedController);
    EXPECT_FALSE(processValues.sharedHelperController);
}

struct ConstructorWithoutAClass : testing::HomeScreenTest, ::testing::WithParamInterface<const char*> { };

TEST_P(ConstructorWithoutAClass, InstallsTheOtherHooks)
{
    device.classes->setPresent(GetParam(), false);
    load();
    std::vector<std::pair<std::string, std::string>> expected;
    for (const auto& [hostClass, method] : hookTable) {
        if (std::string_view(hostClass) != GetParam())
            expected.emplace_back(hostClass, method);
    }
    const std::vector<sim::Json> hooks = eventsOf("hook");
    ASSERT_EQ(hooks.size(), expected.size());
    for (std::size_t i = 0; i < hooks.size(); ++i)
        EXPECT_EQ(hooks[i]["method"], expected[i].second);
    EXPECT_EQ(countOf("observe"), 4u);
}

INSTANTIATE_TEST_SUITE_P(EachClass, ConstructorWithoutAClass,
    ::testing::Values("UIResponder", "SpringBoard", "AVSystemController", "SBSoundController", "SBMediaController",
        "SBHUDController", "VolumeControl", "UIStatusBar", "_UIStatusBar"));

TEST_F(Constructor, TheLaunchHookLoadsTheSettingsAfterTheHostsOwnLaunch)
{
    load();
    forgetEvents();
    device.home->finishLaunching();
    std::vector<std::string> happened;
    for (const sim::Json& event : events)
        happened.push_back(event.contains("domain") ? event["domain"] : event["event"]);
    EXPECT_EQ(happened,
        (std::vector<std::string> {
            "launched", "listener", "listener", "listener", "net.qorvath.panotra", "net.qorvath.brevane2" }));
}

TEST_F(Constructor, TheLaunchHookCreatesBothSingletons)
{
    launch();
    EXPECT_TRUE(processValues.sharedController);
    EXPECT_TRUE(processValues.sharedHelperController);
}

TEST_F(Constructor, TheLaunchHookTearsNothingDownAndForgetsAPresentationOnDemand)
{
    load();
    processValues.presentedViaActivator = true;
    device.home->finishLaunching();
    EXPECT_FALSE(processValues.presentedViaActivator);
}

TEST_F(Constructor, TheLaunchMayBeRepeated)
{
    launch();
    device.home->finishLaunching();
    EXPECT_EQ(countOf("launched"), 2u);
    EXPECT_EQ(countOf("listener"), 3u) << "the helper object is created once";
}

} // namespace
} // namespace panotra
