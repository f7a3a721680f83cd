/// Hosts that do what no host should: nothing may crash, and no call may be lost to whoever was there before.
#include "tests/hosts/HostTest.h"

#include "tests/hosts/HostileSteps.h"
#include "tests/hosts/Imports.h"
#include "tests/hosts/LibraryImage.h"

#include <filesystem>
#include <random>

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

class Random : public HostTest, public ::testing::WithParamInterface<unsigned> { };

} // namespace

TEST_P(Random, CallsWithAnythingInAnyOrderAllReachTheHost)
{
    launch();
    std::mt19937 numbers(GetParam());
    const std::size_t announced
        = doAnything(device, 1500, [&numbers](unsigned sides) { return static_cast<unsigned>(numbers()) % sides; });
    EXPECT_EQ(countOf("announced"), announced);
}

INSTANTIATE_TEST_SUITE_P(Hostile, Random, ::testing::Range(1u, 9u));

} // namespace panotra::testing
