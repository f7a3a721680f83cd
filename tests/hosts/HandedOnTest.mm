/// What the library hands to the process arrives as it came: arguments, objects, events, blocks that run late.
#include "tests/hosts/MixerHostTest.h"

#include "tests/hosts/Blocks.h"
#include "tests/hosts/Crossings.h"
#include "tests/hosts/HostileSteps.h"
#include "tests/hosts/Imports.h"
#include "tests/hosts/Peers.h"

#include <functional>

namespace panotra::testing {

namespace {

/// The receiver and the arguments of calls of methods that other hooks stood in for before the library came.
std::vector<std::vector<const void*>> handedOn;

/// A hook of another library's that was there first, for a method of that number and type: notes objects and pointers.
template <int Number, typename Type> struct Earlier;
template <int Number, typename Result, typename... Arguments> struct Earlier<Number, Result(Arguments...)> {
    static inline IMP previous = nullptr;
    static Result replacement(id self, SEL selector, Arguments... arguments)
    {
        handedOn.push_back({ self, selector, noted(arguments)... });
        return reinterpret_cast<Result (*)(id, SEL, Arguments...)>(previous)(self, selector, arguments...);
    }
    static const void* noted(const void* pointer) { return pointer; }
    static const void* noted(unsigned long number) { return reinterpret_cast<const void*>(number); }
    static const void* noted(float level) { return reinterpret_cast<const void*>(static_cast<long>(level * 1000)); }
    static const void* noted(double delay) { return reinterpret_cast<const void*>(static_cast<long>(delay * 1000)); }
    static void install(const char* className, const char* selector)
    {
        previous = hook(className, selector, reinterpret_cast<IMP>(replacement));
    }
};

class HandedOn : public MixerHostTest { };

const void* number(long value)
{
    return reinterpret_cast<const void*>(value);
}

} // namespace

TEST_F(HandedOn, ApplicationViewAnnouncementCategorySoundAndPointersAreTheVeryOnesThatCame)
{
    Earlier<0, void(id)>::install("SpringBoard", "applicationDidFinishLaunching:");
    Earlier<1, void(id)>::install("AVSystemController", "postEffectiveVolumeNotification:");
    Earlier<2, BOOL(float, id)>::install("AVSystemController", "setVolumeTo:forCategory:");
    Earlier<3, BOOL(float*, id*, id)>::install(
        "AVSystemController", "getActiveCategoryVolume:andName:fallbackCategory:");
    Earlier<4, void(id, double)>::install("SBHUDController", "presentHUDView:autoDismissWithDelay:");
    Earlier<5, BOOL(id, unsigned long, id)>::install("SBSoundController", "playSound:environments:completion:");
    load();
    const auto expectHandedOn = [](const std::vector<const void*>& call) {
        ASSERT_EQ(handedOn.size(), 1u);
        EXPECT_EQ(handedOn[0], call);
        handedOn.clear();
    };
    NSObject* const anything = [[NSObject new] autorelease];
    NSString* const category = @"Alarm";

    const id application = sharedObject("SpringBoard");
    [application applicationDidFinishLaunching:anything];
    expectHandedOn({ application, @selector(applicationDidFinishLaunching:), anything });

    NSDictionary* const announcement = announcementOf(category, @"Anything", [NSNumber numberWithFloat:0.25f]);
    [audio() postEffectiveVolumeNotification:announcement];
    expectHandedOn({ audio(), @selector(postEffectiveVolumeNotification:), announcement });

    [audio() setVolumeTo:0.25f forCategory:category];
    expectHandedOn({ audio(), @selector(setVolumeTo:forCategory:), number(250), category });

    float level = 0;
    id name = nil;
    [audio() getActiveCategoryVolume:&level andName:&name fallbackCategory:category];
    expectHandedOn({ audio(), @selector(getActiveCategoryVolume:andName:fallbackCategory:), &level, &name, category });

    device.home->setRingerMuted(false); // the volume that was set would hold the indicator back
    const id indicator = sharedObject("SBHUDController");
    [indicator presentHUDView:anything autoDismissWithDelay:2.5];
    expectHandedOn({ indicator, @selector(presentHUDView:autoDismissWithDelay:), anything, number(2500) });

    const id sounds = sharedObject("SBSoundController");
    [sounds playSound:anything environments:0x8000000000000001u completion:category];
    expectHandedOn({
        sounds, @selector(playSound:environments:completion:), anything,
            reinterpret_cast<const void*>(0x8000000000000001u), category
    });
}

TEST_F(HandedOn, ObserversAreAskedForWithoutObserverOrObjectAtTheDarwinCentreAndInTheOrderOfTheTable)
{
    using GetCenter = void* (*)();
    const auto center
        = reinterpret_cast<GetCenter>(hosts::importedSymbol("CFNotificationCenterGetDarwinNotifyCenter"))();
    load();
    const char* const names[] = { "net.qorvath.panotra.settingschanged", "net.qorvath.brevane2.settingschanged",
        "com.apple.springboard.screenchanged", "net.qorvath.panotra.uikitshaken" };
    const auto& all = hosts::observations();
    ASSERT_EQ(all.size(), std::size(names));
    for (std::size_t i = 0; i < all.size(); ++i) {
        EXPECT_EQ(all[i].center, center);
        EXPECT_EQ(all[i].observer, nullptr);
        EXPECT_EQ(all[i].name, names[i]);
        EXPECT_EQ(all[i].object, nullptr);
        EXPECT_EQ(all[i].suspensionBehavior, 0);
    }
}

// The hit test.

namespace {

struct HitTest {
    void* receiver;
    DevicePoint point;
    void* event;
};

std::vector<HitTest> hitTests;
id hitAnswered = nil;

id noteHitTest(id self, SEL, DevicePoint point, id event)
{
    hitTests.push_back({ self, point, event });
    return hitAnswered;
}

} // namespace

TEST_F(HandedOn, TheSuperclassesHitTestGetsThePointAndTheEvent)
{
    hook("UIView", "hitTest:withEvent:", reinterpret_cast<IMP>(noteHitTest));
    launch();
    show(panel);
    const id window = hosts::hostObjectFor(held("_window"));
    const id slider = hosts::hostObjectFor(held("_volumeView3"));
    NSObject* const event = [[NSObject new] autorelease];
    using Ask = id (*)(id, SEL, DevicePoint, id);
    const SEL selector = sel_registerName("hitTest:withEvent:");
    const auto ask = reinterpret_cast<Ask>(class_getMethodImplementation(object_getClass(window), selector));
    for (const id answer : { slider, id(nil) }) {
        hitTests.clear();
        hitAnswered = answer;
        EXPECT_EQ(ask(window, selector, DevicePoint { 12, 34 }, event), answer);
        ASSERT_EQ(hitTests.size(), 1u);
        EXPECT_EQ(hitTests[0].receiver, window);
        EXPECT_EQ(hitTests[0].point.x, 12);
        EXPECT_EQ(hitTests[0].point.y, 34);
        EXPECT_EQ(hitTests[0].event, event);
    }
}

// Settings.

namespace {

IMP objectForKeyUnwatched = nullptr;
IMP synchronizeUnwatched = nullptr;
/// What is asked of preference handles, each with what the settings are by then.
std::vector<std::pair<std::string, sim::Json>> defaultsAsked;
std::function<sim::Json()> globalsNow;

id watchObjectForKey(id self, SEL selector, id key)
{
    defaultsAsked.emplace_back([key UTF8String], globalsNow());
    return reinterpret_cast<id (*)(id, SEL, id)>(objectForKeyUnwatched)(self, selector, key);
}

BOOL watchSynchronize(id self, SEL selector)
{
    defaultsAsked.emplace_back("synchronize", globalsNow());
    return reinterpret_cast<BOOL (*)(id, SEL)>(synchronizeUnwatched)(self, selector);
}

} // namespace

TEST_F(HandedOn, SettingsAreReadInTheirOrderAfterASynchronizeTwiceIfTheyAreThereAndHoldAtOnce)
{
    objectForKeyUnwatched = hook("SuiteDefaults", "objectForKey:", reinterpret_cast<IMP>(watchObjectForKey));
    synchronizeUnwatched = hook("SuiteDefaults", "synchronize", reinterpret_cast<IMP>(watchSynchronize));
    globalsNow = [this] {
        return library.globals();
    };
    launch();
    const std::vector<std::pair<std::string, sim::Json>> settings
        = { { "activeStyle", 1 }, { "mixerSkin", 2 }, { "replaceHUD", true }, { "scale", 0.5 },
              { "dismissOnTouch", true }, { "isAppCallNotification", true }, { "handleShake", true } };
    const auto asked = [] {
        std::vector<std::string> names;
        for (const auto& [what, values] : defaultsAsked)
            names.push_back(what);
        return names;
    };
    std::vector<std::string> once { "synchronize" };
    std::vector<std::string> twice { "synchronize" };
    for (const auto& [key, value] : settings) {
        once.push_back(key);
        twice.insert(twice.end(), 2, key);
    }
    defaultsAsked.clear();
    device.home->notify("net.qorvath.panotra.settingschanged");
    EXPECT_EQ(asked(), once) << "none of them is there";

    for (const auto& [key, value] : settings)
        device.preferences->set("net.qorvath.panotra", key, value);
    defaultsAsked.clear();
    device.home->notify("net.qorvath.panotra.settingschanged");
    ASSERT_EQ(asked(), twice);
    for (std::size_t i = 0; i < settings.size(); ++i) {
        const sim::Json& before = defaultsAsked[1 + 2 * i].second;
        for (std::size_t other = 0; other < settings.size(); ++other) {
            const auto& [key, value] = settings[other];
            EXPECT_EQ(before[key] == value, other < i) << key << " when " << settings[i].first << " is asked for";
        }
    }

    device.preferences->set("net.qorvath.brevane2", "dismissDelay", 5);
    defaultsAsked.clear();
    device.home->notify("net.qorvath.brevane2.settingschanged");
    EXPECT_EQ(asked(), (std::vector<std::string> { "synchronize", "dismissDelay", "dismissDelay" }));
    globalsNow = nullptr;
}

TEST_F(HandedOn, TheControllerIsThereBeforeTheSettingsAreReadForTheFirstTime)
{
    synchronizeUnwatched = hook("SuiteDefaults", "synchronize", reinterpret_cast<IMP>(watchSynchronize));
    globalsNow = [this] {
        return sim::Json(device.classes->anyInstance("PNOController") != nullptr);
    };
    defaultsAsked.clear();
    launch();
    ASSERT_FALSE(defaultsAsked.empty());
    EXPECT_EQ(defaultsAsked.front().second, true);
    globalsNow = nullptr;
}

TEST_F(HandedOn, ANumberThatNoIntegerHoldsIsWrappedBeforeItIsCut)
{
    launch();
    device.preferences->set("net.qorvath.panotra", "activeStyle", 9223372036854777856.0);
    device.home->notify("net.qorvath.panotra.settingschanged");
    EXPECT_EQ(library.globals()["activeStyle"], 2048);
    // An integer of which a double has no room for the last digits keeps them.
    device.preferences->set("net.qorvath.panotra", "activeStyle", std::int64_t { 9007199254740993 });
    device.home->notify("net.qorvath.panotra.settingschanged");
    EXPECT_EQ(library.globals()["activeStyle"], 1);
}

// Colours and the orientation.

namespace {

id darkColor(id self, SEL)
{
    return [self colorWithRed:0.125 green:0 blue:0 alpha:1];
}

id paleColor(id self, SEL)
{
    return [self colorWithRed:0.875 green:1 blue:1 alpha:1];
}

} // namespace

TEST_F(HandedOn, BlackAndWhiteAreThePlatformsOwn)
{
    replaceClassMethod("UIColor", "blackColor", reinterpret_cast<IMP>(darkColor));
    replaceClassMethod("UIColor", "whiteColor", reinterpret_cast<IMP>(paleColor));
    const sim::Rgba dark { 0.125, 0, 0, 1 };
    const sim::Rgba pale { 0.875, 1, 1, 1 };
    launch();
    for (const int style : { panel, banner }) {
        device.preferences->set("net.qorvath.panotra", "mixerSkin", 0);
        show(style);
        for (const char* const title : { "_groupLabel0", "_groupLabel1", "_groupLabel2" })
            EXPECT_EQ(view<sim::Label>(title)->textColor, dark);
        EXPECT_EQ(part<sim::Label>(3, "_label1")->textColor, dark);
        EXPECT_EQ(view("_rootBackdropView")->background, std::nullopt);
        dismiss();

        device.preferences->set("net.qorvath.panotra", "mixerSkin", 3);
        show(style);
        for (const char* const title : { "_groupLabel0", "_groupLabel1", "_groupLabel2" })
            EXPECT_EQ(view<sim::Label>(title)->textColor, pale);
        EXPECT_EQ(part<sim::Label>(3, "_label1")->textColor, (sim::Rgba { 1, 1, 1, 1 })) << "by its components";
        EXPECT_EQ(view("_rootBackdropView")->background, dark);
        EXPECT_EQ(part(3, "_backdropView")->background, dark);
        dismiss();
    }
}

namespace {

IMP performUnwatched = nullptr;
std::vector<std::string> performed;

id watchPerform(id self, SEL selector, SEL what)
{
    performed.emplace_back(sel_getName(what));
    return reinterpret_cast<id (*)(id, SEL, SEL)>(performUnwatched)(self, selector, what);
}

} // namespace

TEST_F(HandedOn, TheOrientationIsAskedForByAPerformThatOthersMayHook)
{
    performUnwatched = hook("SpringBoard", "performSelector:", reinterpret_cast<IMP>(watchPerform));
    launch();
    for (const std::int64_t orientation : { 4, 1, 0 }) {
        device.screen->orientation = orientation;
        show(panel);
        EXPECT_EQ(library.layoutMemory().previousOrientation, orientation);
        ASSERT_FALSE(performed.empty());
        for (const std::string& each : performed)
            EXPECT_EQ(each, "activeInterfaceOrientation");
        performed.clear();
        dismiss();
    }
}

// Blocks that run late.

namespace {

std::vector<std::function<void()>> blocksToRun;

void keepBlocks(Class, SEL, double, double, unsigned long, void* animations, void*)
{
    blocksToRun.push_back(hosts::functionOfBlock(animations));
}

/// Writes over what calls before have left on the stack.
void useTheStack()
{
    volatile unsigned char bytes[16384];
    for (std::size_t i = 0; i < sizeof bytes; ++i)
        bytes[i] = static_cast<unsigned char>(i + 1);
}

void runBlocks()
{
    useTheStack();
    for (const auto& block : std::exchange(blocksToRun, {}))
        block();
}

} // namespace

TEST_F(HandedOn, BlocksThatAHostRunsLateStillKnowTheirRouteAndTheirSlider)
{
    launch();
    show(panel);
    replaceClassMethod(
        "UIView", "animateWithDuration:delay:options:animations:completion:", reinterpret_cast<IMP>(keepBlocks));
    device.audio->route = "Headset";
    explicitChange(0.75f);
    ASSERT_EQ(blocksToRun.size(), 2u);
    device.audio->route = "Receiver";
    runBlocks();
    EXPECT_EQ(device.preferences->all()["net.qorvath.panotra"]["volume1"], 0.75);
    EXPECT_EQ(view("_volumeView1")->transform.a, 1.05);

    const id controller = hosts::hostObjectFor(device.classes->anyInstance("PNOController"));
    [controller performSelector:sel_registerName("resetAnimation:")
                     withObject:hosts::hostObjectFor(held("_volumeView1"))];
    [controller performSelector:sel_registerName("resetTransforms")];
    [controller performSelector:sel_registerName("destroyHUDWindow")];
    EXPECT_EQ(blocksToRun.size(), 3u);
    runBlocks();
    EXPECT_EQ(view("_volumeView1")->transform.a, 1.0);
    EXPECT_EQ(view("_containerView")->alpha, 0.0);
}

} // namespace panotra::testing
