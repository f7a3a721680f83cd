/// Each hook among hooks of other libraries, and called from inside one another: those of a process that has taken no
/// system's shape, and those that later systems have instead.
#include "tests/hosts/HostTest.h"

#include "tests/hosts/LibraryImage.h"
#include "tests/hosts/classes/UIKit.h"

#include <algorithm>
#include <array>
#include <functional>
#include <optional>
#include <ostream>
#include <span>
#include <string_view>

namespace panotra::testing {

namespace {

/// What another library's hook does beside passing the call on.
struct OtherHook {
    int calls = 0;
    std::function<void()> inside;
};

/// A hook of another library's over method number `Method`, before the mixer's (`Place` 0) or after it (1).
template <int Method, int Place, typename Type> struct Hooking;
template <int Method, int Place, typename Result, typename... Arguments>
struct Hooking<Method, Place, Result(Arguments...)> {
    static inline IMP previous = nullptr;
    static inline OtherHook other;

    static Result replacement(id self, SEL selector, Arguments... arguments)
    {
        ++other.calls;
        if (other.inside)
            other.inside();
        return reinterpret_cast<Result (*)(id, SEL, Arguments...)>(previous)(self, selector, arguments...);
    }
    static void install(const char* className, const char* selector)
    {
        previous = hook(className, selector, reinterpret_cast<IMP>(replacement));
    }
};

struct HookedMethod {
    std::optional<int> system; ///< whose process has it
    const char* name;
    const char* className;
    const char* selector;
    const char* event; ///< what the host's own implementation leaves in the trace
    void (*call)(sim::HomeScreen& home);
    OtherHook& before;
    OtherHook& after;
    void (*installBefore)(const char* className, const char* selector);
    void (*installAfter)(const char* className, const char* selector);
};

void PrintTo(const HookedMethod& method, std::ostream* stream)
{
    *stream << method.className << ' ' << method.selector;
}

template <int Method, typename Type>
HookedMethod method(const char* name, const char* className, const char* selector, const char* event,
    void (*call)(sim::HomeScreen& home), std::optional<int> system = std::nullopt)
{
    using Before = Hooking<Method, 0, Type>;
    using After = Hooking<Method, 1, Type>;
    return { system, name, className, selector, event, call, Before::other, After::other, Before::install,
        After::install };
}

const HookedMethod hookedMethods[] = {
    method<0, void(long, id)>(
        "Shake", "UIResponder", "motionBegan:withEvent:", "motion", [](sim::HomeScreen& home) { home.motionBegan(1); }),
    method<1, void(id)>("Launch", "SpringBoard", "applicationDidFinishLaunching:", "launched",
        [](sim::HomeScreen& home) { home.finishLaunching(); }),
    method<2, BOOL(float*, id*, id)>("ActiveVolume", "AVSystemController",
        "getActiveCategoryVolume:andName:fallbackCategory:", "activeVolume",
        [](sim::HomeScreen& home) { home.getActiveCategoryVolume(true); }),
    method<3, void(id)>("Announcement", "AVSystemController", "postEffectiveVolumeNotification:", "announced",
        [](sim::HomeScreen& home) { home.announceChange("Audio/Video", 0.25f); }),
    method<4, BOOL(float, id)>("SetVolume", "AVSystemController", "setVolumeTo:forCategory:", "setVolume",
        [](sim::HomeScreen& home) { home.setVolume("Alarm", 0.75f); }),
    method<5, BOOL(id, long, id)>("Sound", "SBSoundController", "playSound:environments:completion:", "sound",
        [](sim::HomeScreen& home) { home.playSound(std::nullopt); }),
    method<6, void(BOOL)>("Ringer", "SBMediaController", "setRingerMuted:", "ringer",
        [](sim::HomeScreen& home) { home.setRingerMuted(true); }),
    method<7, void(id, double)>("Indicator", "SBHUDController", "presentHUDView:autoDismissWithDelay:", "indicator",
        [](sim::HomeScreen& home) { home.presentHUD(1); }),
    method<8, void(BOOL)>("Reorientation", "SBHUDController", "reorientHUDIfNeeded:", "reoriented",
        [](sim::HomeScreen& home) { home.reorientHUD(true); }),
    method<9, void(int, float)>("VolumeIndicator", "VolumeControl", "_presentVolumeHUDWithMode:volume:", "indicator",
        [](sim::HomeScreen& home) { home.presentVolumeHUD(0, 0.5f); }),
    method<10, void(DeviceRect)>("StatusBar", "UIStatusBar", "setFrame:", "statusBarFrame",
        [](sim::HomeScreen& home) { home.setStatusBarFrame("UIStatusBar", 0, 0, 320, 20); }),
    method<11, void(DeviceRect)>("ModernStatusBar", "_UIStatusBar", "setFrame:", "statusBarFrame",
        [](sim::HomeScreen& home) { home.setStatusBarFrame("_UIStatusBar", 0, 0, 320, 20); }),
};

/// What took the place of others, where all of it is there.
template <int Method, typename Type>
HookedMethod later(const char* name, const char* className, const char* selector, const char* event,
    void (*call)(sim::HomeScreen& home))
{
    return method<Method, Type>(name, className, selector, event, call, 16);
}

void sendToRinger(sim::HomeScreen& home, const char* method, auto... arguments)
{
    sim::send<void>(home.shared("SBRingerControl"), sim::selector(method), arguments...);
}

const HookedMethod laterMethods[] = {
    later<12, void(BOOL)>("LaterRinger", "SBRingerControl", "setRingerMuted:", "ringer",
        [](sim::HomeScreen& home) { home.setRingerMuted(true); }),
    later<13, void(int)>("RingerIndicator", "SBRingerControl", "activateRingerHUDFromMuteSwitch:", "indicator",
        [](sim::HomeScreen& home) { sendToRinger(home, "activateRingerHUDFromMuteSwitch:", std::int32_t { 1 }); }),
    later<14, void(int, float, unsigned long)>("RingerIndicatorWithLevel", "SBRingerControl",
        "activateRingerHUD:withInitialVolume:fromSource:", "indicator",
        [](sim::HomeScreen& home) {
            sendToRinger(
                home, "activateRingerHUD:withInitialVolume:fromSource:", std::int32_t { 1 }, 0.5f, std::uint64_t { 2 });
        }),
    later<15, void(id, BOOL)>("LaterIndicator", "SBHUDController", "_presentHUD:animated:", "indicator",
        [](sim::HomeScreen& home) { home.presentHUD(1); }),
    later<16, void(long, double, id)>("Turn", "SpringBoard", "noteInterfaceOrientationChanged:duration:logMessage:",
        "reoriented", [](sim::HomeScreen& home) { home.reorientHUD(true); }),
    later<17, void(float)>("LaterVolumeIndicator", "SBVolumeControl", "_presentVolumeHUDWithVolume:", "indicator",
        [](sim::HomeScreen& home) { home.presentVolumeHUD(0, 0.5f); }),
};

/// The methods that stand in one process with this one.
std::span<const HookedMethod> methodsBeside(const HookedMethod& method)
{
    if (method.system)
        return laterMethods;
    return hookedMethods;
}

const HookedMethod& shake = hookedMethods[0];
const HookedMethod& setVolume = hookedMethods[4];

/// Both are absent from some systems.
void haveAllClasses(sim::Device& device)
{
    device.classes->setPresent("UIStatusBar", true);
    device.classes->setPresent("_UIStatusBar", true);
}

std::string nameOf(const ::testing::TestParamInfo<HookedMethod>& info)
{
    return info.param.name;
}

class HookedMethodTest : public HostTest, public ::testing::WithParamInterface<HookedMethod> {
protected:
    HookedMethodTest()
        : HostTest(GetParam().system)
    {
    }
};

/// The shake's own implementation is never run, so that nothing can be called from inside it.
class CallsInside : public HookedMethodTest { };

} // namespace

TEST_P(HookedMethodTest, CallsTheHooksBeforeAndAfterItOnceACall)
{
    haveAllClasses(device);
    const HookedMethod& method = GetParam();
    method.installBefore(method.className, method.selector);
    launch();
    method.installAfter(method.className, method.selector);
    events.clear();
    method.before.calls = 0;
    method.call(*device.home);
    const int passedOn = method.name == shake.name ? 0 : 1;
    EXPECT_EQ(method.after.calls, 1);
    EXPECT_EQ(method.before.calls, passedOn);
    EXPECT_EQ(countOf(method.event), static_cast<std::size_t>(passedOn));
}

TEST_P(CallsInside, OfAnyHookedMethodAllArrive)
{
    constexpr int deepest = 20;
    haveAllClasses(device);
    const HookedMethod& outer = GetParam();
    for (const HookedMethod& method : methodsBeside(outer))
        method.installBefore(method.className, method.selector);
    launch();
    for (const HookedMethod& inner : methodsBeside(outer)) {
        SCOPED_TRACE(inner.name);
        device.home->setRingerMuted(false); // no program has just set a volume
        pass();
        int depth = 0;
        inner.before.calls = 0;
        outer.before.calls = 0;
        outer.before.inside = [&] {
            if (depth++ < deepest)
                inner.call(*device.home);
        };
        outer.call(*device.home);
        outer.before.inside = nullptr;
        if (inner.name == outer.name) {
            EXPECT_EQ(outer.before.calls, deepest + 1);
            continue;
        }
        // While a program sets a volume, the mixer holds the indicator back.
        const bool isHeldBack = outer.name == setVolume.name && std::string_view(inner.event) == "indicator";
        EXPECT_EQ(outer.before.calls, 1);
        EXPECT_EQ(inner.before.calls, inner.name == shake.name || isHeldBack ? 0 : 1);
    }
}

TEST_P(CallsInside, ThatRaiseReachTheCaller)
{
    haveAllClasses(device);
    const HookedMethod& method = GetParam();
    method.installBefore(method.className, method.selector);
    launch();
    device.home->setRingerMuted(false); // no program has just set a volume
    pass();
    method.before.inside = [] {
        [NSException raise:@"HostileException" format:@"of a previous implementation"];
    };
    EXPECT_ANY_THROW(method.call(*device.home));
    method.before.inside = nullptr;
    method.before.calls = 0;
    method.call(*device.home);
    EXPECT_EQ(method.before.calls, 1);
}

INSTANTIATE_TEST_SUITE_P(Hostile, HookedMethodTest, ::testing::ValuesIn(hookedMethods), nameOf);
INSTANTIATE_TEST_SUITE_P(
    Hostile, CallsInside, ::testing::ValuesIn(std::begin(hookedMethods) + 1, std::end(hookedMethods)), nameOf);
INSTANTIATE_TEST_SUITE_P(Later, HookedMethodTest, ::testing::ValuesIn(laterMethods), nameOf);
INSTANTIATE_TEST_SUITE_P(Later, CallsInside, ::testing::ValuesIn(laterMethods), nameOf);

/// A hook that nobody tries is missing above.
struct HooksOfEachSystem : HostTest, ::testing::WithParamInterface<int> {
    HooksOfEachSystem()
        : HostTest(GetParam())
    {
    }
};

TEST_P(HooksOfEachSystem, AreAmongThoseThatAreTried)
{
    load();
    EXPECT_GT(countOf("hook"), 10u);
    for (const sim::Json& event : events) {
        const auto isTried = [&event](const HookedMethod& method) {
            return event["class"] == method.className && event["method"] == method.selector;
        };
        EXPECT_TRUE(event["event"] != "hook" || std::ranges::any_of(hookedMethods, isTried)
            || std::ranges::any_of(laterMethods, isTried))
            << event;
    }
}

INSTANTIATE_TEST_SUITE_P(Later, HooksOfEachSystem, ::testing::Values(9, 13, 16));

using LibraryLoadedAgain = HostTest;

TEST_F(LibraryLoadedAgain, FromTheSameFileHooksAndObservesNothingAnew)
{
    launch();
    const auto installed = [this] {
        return std::array { countOf("hook"), countOf("register"), countOf("observe"), countOf("listener") };
    };
    const auto before = installed();
    EXPECT_EQ(before[0], 12u);
    const auto second = hosts::openNativeImage(PANOTRA_NATIVE_LIBRARY);
    EXPECT_EQ(installed(), before);
    events.clear();
    device.home->announceChange("Audio/Video", 0.25f);
    EXPECT_EQ(countOf("announced"), 1u);
}

} // namespace panotra::testing
