/// The device's process in the shape of each system: what is there, and what the events reach.
#include "simulator/device/SystemShape.h"

#include "simulator/device/PlatformMethods.h"
#include "simulator/device/Screen.h"
#include "simulator/systems/Systems.h"
#include "tests/unit/device/DeviceTest.h"

#include <set>

namespace panotra::sim {
namespace {

using systems::allRows;
using systems::Kind;
using systems::Row;
using ::testing::ElementsAre;

struct SystemShape : DeviceTest, ::testing::WithParamInterface<int> {
    SystemShape() { takeShape(device, GetParam()); }

    bool isLater(int system) const { return GetParam() >= system; }
    const HostClass& classNamed(const char* name) const { return *device.classes->find(name); }
    Json lastOf(const std::string& event) const
    {
        const auto all = eventsOf(event);
        return all.empty() ? Json() : all.back();
    }
    /// An announcement that no hook stands before.
    Json announced()
    {
        device.home->announce("Alarm", "ExplicitVolumeChange", 0.25f);
        return lastOf("announced");
    }
};

TEST_P(SystemShape, HasTheClassesOfTheSystemUnderTheirSuperclasses)
{
    std::set<std::string_view> present;
    for (const Row& row : allRows()) {
        if (row.kind != Kind::Class || !row.isOn(GetParam()))
            continue;
        present.insert(row.owner);
        const HostClass* const found = device.classes->find(row.owner);
        ASSERT_NE(found, nullptr) << row.owner;
        EXPECT_EQ(found->superclass->name, row.name) << row.owner;
    }
    for (const Row& row : allRows()) {
        const bool isGone = row.kind == Kind::Class && !present.contains(row.owner);
        EXPECT_TRUE(!isGone || device.classes->find(row.owner) == nullptr) << row.owner;
    }
}

TEST_P(SystemShape, HasNoMethodThatTheSystemHasNot)
{
    for (const Row& row : allRows()) {
        const bool isOn = std::ranges::any_of(allRows(), [&](const Row& other) {
            return other.isOn(GetParam()) && std::string_view(other.owner) == row.owner
                && std::string_view(other.name) == row.name;
        });
        const HostClass* const owner = row.kind == Kind::Class ? nullptr : device.classes->find(row.owner);
        if (owner == nullptr || isOn)
            continue;
        EXPECT_FALSE(owner->methods.contains(selector(row.name))) << row.owner << ' ' << row.name;
        EXPECT_FALSE(owner->classMethods.contains(selector(row.name))) << row.owner << ' ' << row.name;
    }
}

/// What the library hooks or asks whether it is there; the rest is answered without a table.
TEST_P(SystemShape, HasEveryMethodThatAnEventReachesOrThatIsAskedAfter)
{
    constexpr std::string_view answeredElsewhere[] = { "_UIBackdropView", "_UIBackdropViewSettings", "UIImage" };
    for (const Row& row : allRows()) {
        const bool isMethod = row.kind == Kind::Method || row.kind == Kind::ClassMethod;
        if (!isMethod || !row.isOn(GetParam()) || std::ranges::count(answeredElsewhere, row.owner) > 0)
            continue;
        const HostClass& owner = device.classes->platformClass(row.owner);
        const bool isThere = row.kind == Kind::Method ? owner.find(selector(row.name)) != nullptr
                                                      : owner.classMethods.contains(selector(row.name));
        EXPECT_TRUE(isThere) << row.owner << ' ' << row.name;
    }
}

TEST_P(SystemShape, StatusBarsInheritTheMethodThatMovesViewsAndAreNotMoved)
{
    EXPECT_FALSE(classNamed("UIStatusBar").methods.contains(selector("setFrame:")));
    for (const char* const name : { "UIStatusBar", "_UIStatusBar" }) {
        events.clear();
        device.home->setStatusBarFrame(name, 1, 2, 3, 4);
        const bool isThere = device.classes->find(name) != nullptr;
        EXPECT_EQ(eventNames().size(), isThere ? 1u : 0u) << name;
        EXPECT_TRUE(!isThere || lastOf("statusBarFrame")["class"] == name);
    }
}

TEST_P(SystemShape, NoScreenAnswersItsPixels)
{
    HostObject* const screen = device.home->mainScreen();
    EXPECT_EQ(screen->isa->find(selector("_realDisplayBounds")), nullptr);
    EXPECT_NE(screen->isa->find(selector("_referenceBounds")), nullptr);
}

TEST_P(SystemShape, AnnouncementsCarryTheKeysOfTheSystem)
{
    EXPECT_STREQ(currentKey(device, "AudioCategory"), "AudioCategory");
    EXPECT_STREQ(currentKey(device, "AudioVolumeChangeReason"), isLater(15) ? "Reason" : "AudioVolumeChangeReason");
    EXPECT_STREQ(currentKey(device, "AudioVolume"), isLater(15) ? "Volume" : "AudioVolume");
    const Json event = announced();
    EXPECT_EQ(event["category"], "Alarm");
    EXPECT_EQ(event["reason"], "ExplicitVolumeChange");
    EXPECT_EQ(event["level"], 0.25);
}

/// From 13 on the audio service has a queue of its own, for which the main thread waits.
TEST_P(SystemShape, TheAudioServiceIsToldWhereItsSystemTellsIt)
{
    static bool isOnMainThread = false;
    static int timesTold = 0;
    timesTold = 0;
    auto& methods = device.classes->platformClass("AVSystemController").methods;
    methods[selector("postEffectiveVolumeNotification:")]
        = implementation(+[](HostObject*, const HostSelector*, HostObject*) {
              isOnMainThread = process().isMainThread();
              ++timesTold;
              process().runLoop->post([] { ++timesTold; });
          });
    device.home->announce("Alarm", "ExplicitVolumeChange", 0.25f);
    EXPECT_EQ(isOnMainThread, !isLater(13));
    EXPECT_EQ(timesTold, isLater(13) ? 2 : 1) << "what is left to the main thread there is done before anything else";
    device.runLoop->turn();
    EXPECT_EQ(timesTold, 2);
    EXPECT_EQ(isCalledOnAudioQueue(device, "AVSystemController", "setVolumeTo:forCategory:"), isLater(13));
    EXPECT_FALSE(isCalledOnAudioQueue(device, "AVSystemController", "getVolume:forCategory:"));
}

TEST_P(SystemShape, TheVolumeIndicatorIsAskedForWithWhatTheMethodTakes)
{
    device.home->presentVolumeHUD(5'000'000'000, 0.25f);
    Json expected { { "t", 0.0 }, { "event", "indicator" } };
    if (isLater(13))
        expected.update({ { "by", "_presentVolumeHUDWithVolume:" }, { "level", 0.25 } });
    else
        expected.update(
            { { "by", "_presentVolumeHUDWithMode:volume:" }, { "mode", 5'000'000'000 }, { "level", 0.25 } });
    EXPECT_EQ(lastOf("indicator"), expected);
    EXPECT_EQ(device.home->indicator->level, 0.25);
}

TEST_P(SystemShape, AnyOtherIndicatorStaysAsLongAsItWasAskedToAlsoWhereNobodyIsTold)
{
    device.home->presentHUD(3.5);
    EXPECT_EQ(lastOf("indicator").contains("delay"), !isLater(13));
    EXPECT_EQ(
        lastOf("indicator")["by"], isLater(13) ? "_presentHUD:animated:" : "presentHUDView:autoDismissWithDelay:");
    EXPECT_EQ(device.home->indicator->stay, 3.5);
}

TEST_P(SystemShape, TheRingerAndItsIndicatorHaveAClassOfTheirOwnFrom13On)
{
    device.home->setRingerMuted(true);
    EXPECT_EQ(lastOf("ringer")["muted"], true);
    const HostClass* const control = device.classes->find("SBRingerControl");
    ASSERT_EQ(control != nullptr, isLater(13));
    if (control == nullptr)
        return;
    send<void>(
        device.home->shared("SBRingerControl"), selector("activateRingerHUDFromMuteSwitch:"), std::int32_t { 1 });
    EXPECT_EQ(lastOf("indicator")["by"], "activateRingerHUDFromMuteSwitch:");
    EXPECT_EQ(control->find(selector("activateRingerHUD:withInitialVolume:fromSource:")) != nullptr, isLater(16));
}

TEST_P(SystemShape, ATurnIsToldToTheIndicatorOrTheApplication)
{
    device.home->reorientHUD(true);
    EXPECT_EQ(lastOf("reoriented")["flag"], true);
    device.home->reorientHUD(false);
    EXPECT_EQ(eventsOf("reoriented").size(), isLater(13) ? 1u : 2u);
}

TEST_P(SystemShape, TheButtonsAreReadByTheirVariables)
{
    device.home->volumeMode = 4'294'967'296;
    device.home->volumeUpIsDown = true;
    HostObject* const buttons = device.home->shared(isLater(13) ? "SBVolumeControl" : "VolumeControl");
    const Json mode = device.classes->scalarForKey(buttons, "_mode");
    EXPECT_TRUE(mode.is_number_integer());
    EXPECT_NE(mode, 0) << "what has no room is still not zero";
    EXPECT_EQ(device.classes->scalarForKey(buttons, "_volumeUpButtonIsDown"), true);
    EXPECT_EQ(device.classes->scalarForKey(buttons, "_volumeDownButtonIsDown"), false);
}

TEST_P(SystemShape, AWindowWithoutASceneIsSeenOnlyWhereThereAreNone)
{
    Window& window = make<Window>("UIWindow");
    window.makeKeyAndVisible();
    EXPECT_EQ(window.shown, !isLater(16));
    window.setScene(device.home->windowScene());
    window.makeKeyAndVisible();
    EXPECT_TRUE(window.shown);
    window.setScene(nullptr);
}

TEST_P(SystemShape, WhatIsLackingIsLackingWithWhatTookItsPlace)
{
    setClassPresent(device, "VolumeControl", false);
    setClassPresent(device, "SBMediaController", false);
    setClassPresent(device, "SBHUDController", false);
    device.home->presentVolumeHUD(0, 0.5f);
    device.home->setRingerMuted(true);
    device.home->presentHUD(1);
    device.home->reorientHUD(true);
    EXPECT_THAT(eventNames(), ElementsAre());
    setClassPresent(device, "VolumeControl", true);
    setClassPresent(device, "SBMediaController", true);
    setClassPresent(device, "SBHUDController", true);
    device.home->presentVolumeHUD(0, 0.5f);
    device.home->setRingerMuted(true);
    device.home->presentHUD(1);
    device.home->reorientHUD(true);
    EXPECT_THAT(eventNames(), ElementsAre("indicator", "ringer", "indicator", "reoriented"));
}

/// What moved into a class from another one is not what a scenario means by that class.
TEST_P(SystemShape, AClassThatIsLackingStillDoesWhatItDoesForOthers)
{
    const auto duration = [this] {
        return send<double>(device.home->shared("SpringBoard"), selector("windowRotationDuration"));
    };
    for (const char* const again : { "once", "twice" }) {
        setClassPresent(device, "SpringBoard", false);
        EXPECT_EQ(device.classes->find("SpringBoard") != nullptr, isLater(13)) << again;
        EXPECT_EQ(isLeftToOthers(device, "SpringBoard"), isLater(13)) << again;
    }
    device.screen->statusBarHidden = true;
    device.home->finishLaunching();
    EXPECT_THAT(eventNames(), ElementsAre());
    device.home->reorientHUD(true);
    EXPECT_THAT(eventNames(), ElementsAre("reoriented"));
    EXPECT_EQ(duration(), 0);
    EXPECT_FALSE(send<bool>(device.home->shared("SpringBoard"), selector("isSpringBoardStatusBarHidden")));
    EXPECT_EQ(send<HostObject*>(device.home->shared("SpringBoard"), selector("statusBarForEmbeddedDisplay")), nullptr);
    HostObject* const buttons = send<HostObject*>(device.home->shared("SpringBoard"), selector("volumeControl"));
    EXPECT_EQ(buttons != nullptr, isLater(16));

    setClassPresent(device, "SpringBoard", true);
    EXPECT_FALSE(isLeftToOthers(device, "SpringBoard"));
    device.home->finishLaunching();
    EXPECT_THAT(eventNames(), ElementsAre("reoriented", "launched"));
    EXPECT_EQ(duration(), isLater(15) ? 0 : 0.3);
}

TEST_P(SystemShape, AClassOfOtherSystemsIsThereWithoutWhatItDoesThere)
{
    setClassPresent(device, "VolumeControl", true);
    const HostClass& buttons = classNamed("VolumeControl");
    EXPECT_EQ(buttons.classMethods.contains(selector("sharedVolumeControl")), !isLater(13));
    setClassPresent(device, "SBWindowScene", true);
    EXPECT_EQ(device.home->windowScene() != nullptr, isLater(16)) << "below, windows belong to no scenes";
}

TEST_P(SystemShape, AWindowIsSeenWithoutASceneWhereScenesAreLacking)
{
    setClassPresent(device, "UIWindowScene", false);
    Window& window = make<Window>("UIWindow");
    window.makeKeyAndVisible();
    EXPECT_TRUE(window.shown);
}

INSTANTIATE_TEST_SUITE_P(Each, SystemShape, ::testing::Range(systems::oldest, systems::newest + 1));

/// A process that takes no shape has nothing that a later system brought.
TEST_F(DeviceTest, WithoutAShapeThereIsNothingOfLaterSystems)
{
    for (const Row& row : allRows()) {
        if (row.since < 13)
            continue;
        const bool isOlder = std::ranges::any_of(allRows(), [&](const Row& other) {
            return other.since < 13 && other.kind == row.kind && std::string_view(other.owner) == row.owner
                && (row.kind == Kind::Class || std::string_view(other.name) == row.name);
        });
        const HostClass* const owner = device.classes->find(row.owner);
        if (isOlder || owner == nullptr)
            continue;
        EXPECT_NE(row.kind, Kind::Class) << row.owner;
        EXPECT_FALSE(owner->methods.contains(selector(row.name))) << row.owner << ' ' << row.name;
    }
    setClassPresent(device, "SBVolumeControl", true);
    EXPECT_TRUE(device.classes->find("SBVolumeControl")->methods.empty());
}

} // namespace
} // namespace panotra::sim
