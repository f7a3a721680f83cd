/// Hosts that do what no host should: nothing may crash, and no call may be lost to whoever was there before.
#include "tests/hosts/HostTest.h"

#include "tests/hosts/HostileSteps.h"
#include "tests/hosts/Imports.h"
#include "tests/hosts/LibraryImage.h"

#include <filesystem>

namespace panotra::testing {

namespace {

IMP setVolumeUnwatched = nullptr;

/// A host trusts that a category is a string.
BOOL setVolumeOfACategory(id self, SEL selector, float level, id category)
{
    EXPECT_TRUE(category == nil || [category isKindOfClass:[NSString class]]);
    return reinterpret_cast<BOOL (*)(id, SEL, float, id)>(setVolumeUnwatched)(self, selector, level, category);
}

} // namespace

using HostileHost = HostTest;

TEST_F(HostileHost, AnnouncementsWithAnythingUnderAnyKeyReachTheHost)
{
    setVolumeUnwatched
        = hook("AVSystemController", "setVolumeTo:forCategory:", reinterpret_cast<IMP>(setVolumeOfACategory));
    launch();
    std::size_t announced = 0;
    for (const bool replaces : { false, true }) {
        device.preferences->set("net.qorvath.panotra", "replaceHUD", replaces);
        device.home->notify("net.qorvath.panotra.settingschanged");
        for (NSUInteger i = 0; i < [oddValues() count]; ++i) {
            const id value = [oddValues() objectAtIndex:i];
            announce(announcementOf(value, @"ExplicitVolumeChange", [NSNumber numberWithFloat:0.5f]));
            announce(announcementOf(@"Audio/Video", value, [NSNumber numberWithFloat:0.25f]));
            announce(announcementOf(@"Audio/Video", @"ExplicitVolumeChange", value));
            announce(announcementOf(@"Ringtone", @"RouteChange", value));
            announce(announcementOf(value, @"RouteChange", [NSNumber numberWithFloat:0.9f]));
            announce(announcementOf(value, value, value));
            announce(value);
            announced += 7;
            ASSERT_EQ(countOf("announced"), announced);
            pass(0.1);
        }
    }
    announce(nil);
    EXPECT_EQ(countOf("announced"), announced + 1);
    pass(100);
    announce(announcementOf(@"Audio/Video", @"ExplicitVolumeChange", [NSNumber numberWithFloat:0.75f]));
    EXPECT_TRUE(isShown());
    pass(100);
    EXPECT_FALSE(isShown());
}

TEST_F(HostileHost, ListenersAreAskedWithAnyNameAndAnswerNothingOrAText)
{
    launch();
    const id listener = [objc_lookUpClass("PNOHelperController") performSelector:@selector(sharedInstance)];
    ASSERT_NE(listener, nil);
    const SEL questions[] = {
        sel_registerName("activator:requiresLocalizedGroupForListenerName:"),
        sel_registerName("activator:requiresLocalizedTitleForListenerName:"),
        sel_registerName("activator:requiresLocalizedDescriptionForListenerName:"),
    };
    NSArray* const names = [oddValues() arrayByAddingObject:@"net.qorvath.panotra.mixer"];
    for (NSUInteger i = 0; i <= [names count]; ++i) {
        const id name = i < [names count] ? [names objectAtIndex:i] : nil;
        for (const SEL question : questions) {
            const id answer = [listener performSelector:question withObject:name withObject:name];
            EXPECT_TRUE(answer == nil || [answer isKindOfClass:[NSString class]]);
        }
        using Receive = void (*)(id, SEL, id, id, id);
        const SEL receive = sel_registerName("activator:receiveEvent:forListenerName:");
        reinterpret_cast<Receive>(class_getMethodImplementation(object_getClass(listener), receive))(
            listener, receive, name, name, name);
        pass();
    }
    pass(100);
}

namespace {

/// How deep hosts call a hooked method from inside a hooked method here.
constexpr int deepest = 20;
int depth = 0;
IMP setVolumeBefore = nullptr;

/// Announces each level from inside the call that sets it, as a host that knows no queue.
BOOL setVolumeAndAnnounce(id self, SEL selector, float level, id category)
{
    if (depth < deepest) {
        ++depth;
        [self postEffectiveVolumeNotification:[NSDictionary dictionaryWithObjectsAndKeys:category, @"AudioCategory",
                                                            @"RouteChange", @"AudioVolumeChangeReason",
                                                            [NSNumber numberWithFloat:level + 0.01f], @"AudioVolume",
                                                            nil]];
    }
    return reinterpret_cast<BOOL (*)(id, SEL, float, id)>(setVolumeBefore)(self, selector, level, category);
}

} // namespace

TEST_F(HostileHost, CallsOfHookedMethodsFromInsideHookedMethodsAllArrive)
{
    setVolumeBefore
        = hook("AVSystemController", "setVolumeTo:forCategory:", reinterpret_cast<IMP>(setVolumeAndAnnounce));
    launch();
    events.clear();
    [audio() setVolumeTo:0.25f forCategory:@"Audio/Video"];
    pass();
    EXPECT_EQ(depth, deepest);
    EXPECT_EQ(countOf("announced"), std::size_t { deepest });
    EXPECT_EQ(countOf("setVolume"), std::size_t { deepest } + 1);
}

TEST_F(HostileHost, ASecondCopyOfTheLibraryLosesNoCallToTheHost)
{
    launch();
    const auto copy = std::filesystem::temp_directory_path() / ("libPanotraCopy." + std::to_string(getpid()) + ".so");
    std::filesystem::copy_file(PANOTRA_NATIVE_LIBRARY, copy, std::filesystem::copy_options::overwrite_existing);
    const auto second = hosts::openNativeImage(copy.string());
    std::filesystem::remove(copy);
    EXPECT_EQ(countOf("hook"), 24u);
    events.clear();
    device.home->finishLaunching();
    device.home->announceChange("Audio/Video", 0.25f);
    device.home->setRingerMuted(true);
    device.home->press(sim::Button::Up);
    device.home->notify("net.qorvath.panotra.uikitshaken");
    pass(100);
    EXPECT_EQ(countOf("launched"), 1u);
    EXPECT_EQ(countOf("announced"), 2u);
    EXPECT_EQ(countOf("ringer"), 1u);
}

namespace {

/// Everything that the outside does to a home screen.
void liveADay(sim::Device& device, const std::function<void(double)>& pass)
{
    sim::HomeScreen& home = *device.home;
    for (const bool replaces : { false, true }) {
        for (const std::int64_t style : { 0, 1 }) {
            device.preferences->set("net.qorvath.panotra", "replaceHUD", replaces);
            device.preferences->set("net.qorvath.panotra", "activeStyle", style);
            home.notify("net.qorvath.panotra.settingschanged");
            home.getActiveCategoryVolume(true);
            home.announce("Audio/Video", "RouteChange", 0.75f);
            home.press(sim::Button::Up);
            home.release(sim::Button::Up);
            pass(1);
            home.presentHUD(1);
            home.reorientHUD(true);
            home.setStatusBarFrame("UIStatusBar", 0, 0, 320, 20);
            home.setRingerMuted(replaces);
            home.playSound(1);
            home.playSound(std::nullopt);
            home.motionBegan(1);
            home.notify("net.qorvath.panotra.uikitshaken");
            home.askActivator("title", "net.qorvath.panotra.mixer");
            home.askActivator("icon", "net.qorvath.panotra.mixer");
            home.sendActivatorEvent("net.qorvath.panotra.mixer");
            home.pan(0, 1, 30);
            home.pan(0, 2, 60);
            home.pan(0, 3, 60);
            device.touches->down(160, 240);
            device.touches->move(190, 240);
            device.touches->up();
            home.notify("com.apple.springboard.screenchanged");
            pass(100);
        }
    }
}

const char* const classesOfTheProcess[] = { "NSBundle", "NSDictionary", "NSNumber", "NSString", "NSUserDefaults",
    "CALayer", "UIApplication", "UIColor", "UIFont", "UIImage", "UIImageView", "UILabel", "UIPanGestureRecognizer",
    "UIResponder", "UIScreen", "UIStatusBar", "UIView", "UIViewPropertyAnimator", "UIWindow", "_UIBackdropView",
    "_UIBackdropViewSettings", "_UIStatusBar", "AVSystemController", "AXSpringBoardServer", "SBAssistantController",
    "SBHUDController", "SBMediaController", "SBSoundController", "SpringBoard", "VolumeControl", "LAActivator",
    "MeliorWindow", "ABVolumeHUDManager" };

/// A view that is none could not be shown by any host: UIView has its methods always.
std::vector<const char*> classesThatMayBeEmpty()
{
    std::vector<const char*> classes(std::begin(classesOfTheProcess), std::end(classesOfTheProcess));
    std::erase_if(classes, [](std::string_view name) { return name == "UIView"; });
    return classes;
}

class ProcessWithout : public HostTest, public ::testing::WithParamInterface<const char*> { };
class ProcessWithAnEmpty : public HostTest, public ::testing::WithParamInterface<const char*> { };

std::string nameOf(const ::testing::TestParamInfo<const char*>& info)
{
    const std::string name = info.param;
    return name.substr(name.find_first_not_of('_')) + (name[0] == '_' ? "Private" : "");
}

} // namespace

TEST_P(ProcessWithout, TheClassLivesOn)
{
    device.classes->setPresent("MeliorWindow", true);
    device.classes->setPresent("ABVolumeHUDManager", true);
    device.classes->setPresent(GetParam(), false);
    launch();
    liveADay(device, [this](double seconds) { pass(seconds); });
    EXPECT_EQ(countOf("launched"), std::string(GetParam()) == "SpringBoard" ? 0u : 1u);
}

/// The class is there, and has none of the methods that it should have of its own.
TEST_P(ProcessWithAnEmpty, ClassLivesOn)
{
    device.classes->setPresent("MeliorWindow", true);
    device.classes->setPresent("ABVolumeHUDManager", true);
    hosts::emptyClass(GetParam());
    launch();
    liveADay(device, [this](double seconds) { pass(seconds); });
    EXPECT_EQ(countOf("launched"), 1u);
}

INSTANTIATE_TEST_SUITE_P(Hostile, ProcessWithout, ::testing::ValuesIn(classesOfTheProcess), nameOf);
INSTANTIATE_TEST_SUITE_P(Hostile, ProcessWithAnEmpty, ::testing::ValuesIn(classesThatMayBeEmpty()), nameOf);

namespace {

class Random : public HostTest, public ::testing::WithParamInterface<unsigned> { };

/// The same numbers on every machine.
class Dice {
public:
    explicit Dice(unsigned seed)
        : m_state(seed)
    {
    }
    /// From 0 to `sides` - 1.
    unsigned roll(unsigned sides)
    {
        m_state = m_state * 6364136223846793005u + 1442695040888963407u;
        return static_cast<unsigned>(m_state >> 33) % sides;
    }

private:
    std::uint64_t m_state;
};

} // namespace

TEST_P(Random, CallsWithAnythingInAnyOrderAllReachTheHost)
{
    launch();
    Dice dice(GetParam());
    const std::size_t announced = doAnything(device, 1500, [&dice](unsigned sides) { return dice.roll(sides); });
    EXPECT_EQ(countOf("announced"), announced);
}

INSTANTIATE_TEST_SUITE_P(Hostile, Random, ::testing::Range(1u, 9u));

} // namespace panotra::testing
