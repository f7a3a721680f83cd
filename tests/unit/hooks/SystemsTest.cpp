/// The mixer on each system: what is hooked, and the ways that it takes where an old one is gone.
#include "simulator/systems/Systems.h"
#include "hooks/HostTables.h"
#include "simulator/device/SystemShape.h"
#include "simulator/device/Values.h"
#include "tests/support/MixerTest.h"

#include <algorithm>

namespace panotra {
namespace {

struct OnSystem : testing::MixerTest, ::testing::WithParamInterface<int> {
    OnSystem()
    {
        takeShape(device, GetParam());
        storeLevels(0.5);
    }

    bool isLater(int system) const { return GetParam() >= system; }
    void replaceIndicator()
    {
        store("replaceHUD", true);
        launch();
        forgetEvents();
    }
    HostObject* shared(const char* name) { return device.home->shared(name); }
    template <typename... Arguments> void send(const char* className, const char* method, Arguments... arguments)
    {
        sim::send<void>(shared(className), sim::selector(method), arguments...);
        pass();
    }
};

TEST_P(OnSystem, HooksOfEachKindTheOneMethodThatIsThere)
{
    load();
    std::vector<std::pair<std::string, std::string>> expected;
    for (const HostMethod& row : hookedMethods) {
        const std::pair<std::string, std::string> method { row.className, row.method };
        if (row.since <= GetParam() && GetParam() <= row.until)
            expected.push_back(method);
    }
    std::vector<std::pair<std::string, std::string>> found;
    for (const sim::Json& event : eventsOf("hook"))
        found.emplace_back(event["class"], event["method"]);
    EXPECT_EQ(found, expected);
}

TEST_P(OnSystem, HoldsEveryWayToTheIndicatorBackWhileItReplacesIt)
{
    replaceIndicator();
    device.home->presentHUD(2);
    device.home->presentVolumeHUD(0, 0.5f);
    send("SBRingerControl", "activateRingerHUDFromMuteSwitch:", std::int32_t { 1 });
    send("SBRingerControl", "activateRingerHUD:withInitialVolume:fromSource:", std::int32_t { 1 }, 0.5f,
        std::uint64_t { 2 });
    EXPECT_EQ(countOf("indicator"), 0u);
    store("replaceHUD", false);
    reloadSettings();
    processValues.manualSet = false; // the oldest system sets the ringer when it reads the settings
    device.home->presentHUD(2);
    device.home->presentVolumeHUD(0, 0.5f);
    send("SBRingerControl", "activateRingerHUDFromMuteSwitch:", std::int32_t { 1 });
    send("SBRingerControl", "activateRingerHUD:withInitialVolume:fromSource:", std::int32_t { 1 }, 0.5f,
        std::uint64_t { 2 });
    EXPECT_EQ(countOf("indicator"), isLater(16) ? 4u : isLater(13) ? 3u : 2u);
}

TEST_P(OnSystem, APressShowsTheMixerAndIsRemembered)
{
    replaceIndicator();
    device.home->press(sim::Button::Up);
    pass();
    EXPECT_TRUE(controller().window());
    EXPECT_EQ(countOf("windowShown"), 1u) << "the window belongs to a scene where it must";
    EXPECT_EQ(stored("volume0"), 0.5625);
    EXPECT_EQ(countOf("indicator"), 0u);
}

TEST_P(OnSystem, TheModeDecidesAboutTheFocus)
{
    replaceIndicator();
    device.home->volumeMode = 1;
    announce("Audio/Video", "ExplicitVolumeChange", 0.0625f);
    EXPECT_EQ(countOf("cancel"), 1u) << "the dismissal's own: in any mode but 0 such a level is not focused";
    pass(1);
    device.home->volumeMode = 0;
    forgetEvents();
    announce("Audio/Video", "ExplicitVolumeChange", 0.05f);
    EXPECT_EQ(countOf("cancel"), 2u);
}

TEST_P(OnSystem, AHeldButtonKeepsTheSliderLarge)
{
    replaceIndicator();
    device.home->press(sim::Button::Down);
    pass(1);
    EXPECT_NEAR(swelling(0), 1.05, 1e-9);
    device.home->release(sim::Button::Down);
    announce("Audio/Video", "ExplicitVolumeChange", 0.75f);
    pass(1);
    EXPECT_EQ(swelling(0), 1);
}

TEST_P(OnSystem, TheRingerSwitchShowsTheMixer)
{
    replaceIndicator();
    device.home->setRingerMuted(true);
    pass();
    EXPECT_EQ(shownText(7), "Silent");
    EXPECT_EQ(countOf("ringer"), 1u);
}

TEST_P(OnSystem, ATurnTakesAsLongAsTheHomeScreenSays)
{
    show(panel);
    device.home->rotationDuration = 0.5;
    forgetEvents();
    turnTo(3);
    EXPECT_EQ(durations().at(0), 0.5);
    // Asked where that can be asked, else what came with the last turn.
    device.home->rotationDuration = 0.75;
    forgetEvents();
    controller().layoutSubviews();
    EXPECT_EQ(durations().at(0), isLater(15) ? 0.5 : 0.75);
}

TEST_P(OnSystem, TheFirstTurnOfWhichNobodyWasToldTakesAsLongAsUsual)
{
    show(panel);
    dismiss();
    forgetEvents();
    presentOnDemand();
    EXPECT_EQ(durations().at(0), 0.3);
}

TEST_P(OnSystem, ATurnedBannerFollowsTheStatusBarWhileItIsShown)
{
    show(banner);
    device.screen->statusBarCenter = { 100, 10 };
    turnTo(3);
    EXPECT_EQ(view("_containerView").center.x, 100);
    device.screen->statusBarHidden = true;
    turnTo(4);
    EXPECT_EQ(view("_containerView").center.x, view("_rootView").center.y);
}

TEST_P(OnSystem, TheAssistantIsLeftAloneAltogetherWhereItCannotBeOpened)
{
    show(panel);
    forgetEvents();
    device.home->pan(10, 1, 50);
    device.home->pan(10, 3, 50);
    EXPECT_EQ(countOf("assistant"), isLater(13) ? 0u : 3u);
}

TEST_P(OnSystem, CornersAreRoundedAsTheLayersCan)
{
    show(panel);
    EXPECT_EQ(view("_containerView").layer.continuousCorners, isLater(11));
}

INSTANTIATE_TEST_SUITE_P(Each, OnSystem, ::testing::Range(systems::oldest, systems::newest + 1));

// Where only memory supports a step, its failure harms nothing.

struct OnTheNewest : testing::MixerTest {
    OnTheNewest()
    {
        takeShape(device, 16);
        storeLevels(0.5);
    }
    void forgetMethod(const char* className, const char* method)
    {
        device.classes->platformClass(className).methods.erase(sim::selector(method));
    }
};

TEST_F(OnTheNewest, WithoutAConnectedSceneTheMixerIsBuiltAllTheSame)
{
    device.classes->setPresent("SBWindowScene", false);
    show(panel);
    EXPECT_EQ(countOf("windowShown"), 1u);
}

TEST_F(OnTheNewest, ScenesThatCannotBeAskedForAreDoneWithout)
{
    forgetMethod("UIApplication", "connectedScenes");
    show(panel);
    EXPECT_TRUE(controller().window());
    EXPECT_EQ(countOf("windowShown"), 0u) << "nobody sees it, and nothing else goes wrong";
    announce("Audio/Video", "ExplicitVolumeChange", 0.75f);
    EXPECT_EQ(shownText(0), "75%");
}

TEST_F(OnTheNewest, WhereTheRingerSwitchIsNotFoundItsIndicatorsAreLeftAlone)
{
    forgetMethod("SBRingerControl", "setRingerMuted:");
    load();
    for (const sim::Json& event : eventsOf("hook"))
        EXPECT_NE(event["class"], "SBRingerControl");
}

TEST_F(OnTheNewest, ButtonsThatCannotBeFoundReadAsModeZeroAndNotHeld)
{
    forgetMethod("SpringBoard", "volumeControl");
    device.home->volumeMode = 1;
    device.home->volumeUpIsDown = true;
    show(panel);
    announce("Audio/Video", "ExplicitVolumeChange", 0.05f);
    pass(0.3);
    EXPECT_NEAR(swelling(0), 1.05, 1e-9);
    pass(1);
    EXPECT_EQ(swelling(0), 1);
}

TEST_F(OnTheNewest, AStatusBarThatCannotBeFoundCountsAsHidden)
{
    forgetMethod("SpringBoard", "statusBarForEmbeddedDisplay");
    show(banner);
    device.screen->statusBarCenter = { 100, 10 };
    turnTo(3);
    EXPECT_EQ(view("_containerView").center.x, view("_rootView").center.y);
}

TEST_F(OnTheNewest, TheHomeScreensMemoryOfTheRouteIsAskedWhereTheAudioServiceDoesNotAnswer)
{
    device.audio->route = "Headphone";
    launch();
    EXPECT_TRUE(controller().pickedRoute().isEqualToString("Headphone"));
    static HostClass::Implementation answer;
    auto& methods = device.classes->platformClass("SBAVSystemControllerCache").methods;
    answer = sim::implementation(
        +[](HostObject*, const HostSelector*) -> HostObject* { return sim::autoreleasedString("HeadphonesBT"); });
    methods[sim::selector("activeAudioRoute")] = answer;
    EXPECT_TRUE(controller().pickedRoute().isEqualToString("Headphone")) << "the service comes first";
    device.audio->route.reset();
    EXPECT_TRUE(controller().pickedRoute().isEqualToString("HeadphonesBT"));
}

struct WithoutTheIndicatorsController : testing::MixerTest, ::testing::WithParamInterface<int> {
    WithoutTheIndicatorsController()
    {
        takeShape(device, GetParam());
        setClassPresent(device, "SBHUDController", false);
        storeLevels(0.5);
    }
    bool isTurnHooked() const
    {
        return std::ranges::any_of(eventsOf("hook"), [](const sim::Json& event) {
            return event["method"] == "noteInterfaceOrientationChanged:duration:logMessage:";
        });
    }
};

TEST_P(WithoutTheIndicatorsController, ATurnIsHookedOnlyWhereItsDurationComesWithIt)
{
    load();
    EXPECT_EQ(isTurnHooked(), GetParam() >= 15);
}

TEST_P(WithoutTheIndicatorsController, ATurnTakesAsLongAsTheHomeScreenSaysAllTheSame)
{
    show(panel);
    device.home->rotationDuration = 0.5;
    device.screen->orientation = 3;
    if (GetParam() >= 10)
        sim::send<void, std::int64_t, double, HostObject*>(device.home->shared("SpringBoard"),
            sim::selector("noteInterfaceOrientationChanged:duration:logMessage:"), 3, 0.5, nullptr);
    forgetEvents();
    controller().layoutSubviews();
    EXPECT_EQ(durations().at(0), 0.5);
}

INSTANTIATE_TEST_SUITE_P(Each, WithoutTheIndicatorsController, ::testing::Range(systems::oldest, systems::newest + 1));

using OnSystemsBetween = testing::HomeScreenTest;

/// Old names come first: a later system's method beside them is not hooked as well.
TEST_F(OnSystemsBetween, TheOlderOfTwoMethodsIsHookedAlone)
{
    sim::takeShape(device, 12);
    load();
    EXPECT_NE(device.classes->find("SpringBoard")
                  ->find(sim::selector("noteInterfaceOrientationChanged:duration:logMessage:")),
        nullptr);
    EXPECT_TRUE(std::ranges::none_of(eventsOf("hook"), [](const sim::Json& event) {
        return event["method"] == "noteInterfaceOrientationChanged:duration:logMessage:";
    }));
}

} // namespace
} // namespace panotra
