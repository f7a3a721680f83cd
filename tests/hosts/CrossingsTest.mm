/// What the library asks of the process when it is loaded.
#include "tests/hosts/Crossings.h"

#include "tests/hosts/HostTest.h"
#include "tests/hosts/Imports.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <set>

namespace panotra::testing {

namespace {

using ::testing::ElementsAre;

/// Questions that change nothing and counts that are given back.
const std::set<std::string> looksAndCounts = {
    "class_copyMethodList",
    "class_getSuperclass",
    "class_respondsToSelector",
    "method_getImplementation",
    "method_getTypeEncoding",
    "object_getClass",
    "objc_autoreleasePoolPop",
    "objc_autoreleasePoolPush",
    "objc_release",
    "objc_retain",
    "sel_registerName",
};

/// The library's first look at anything is counted too.
class CrossingsTest : public HostTest {
protected:
    explicit CrossingsTest(std::optional<int> system = std::nullopt)
        : HostTest(system)
    {
    }

    std::vector<std::string> crossingsOfLoad()
    {
        hosts::forgetCrossings();
        hosts::recordCrossings(true);
        library.load();
        hosts::recordCrossings(false);
        auto all = hosts::crossings();
        std::erase(all, "method_getName"); // as many as the classes happen to have methods
        return all;
    }

    static std::vector<std::string> withoutLooks(std::vector<std::string> all)
    {
        std::erase_if(all, [](const std::string& each) { return looksAndCounts.contains(each); });
        return all;
    }
};

} // namespace

TEST_F(CrossingsTest, OutsideTheHomeScreenTheConstructorHooksTheShakeRegistersItAndAsksWhereItIs)
{
    device.bundleIdentifier = "com.example.editor";
    const auto all = crossingsOfLoad();
    EXPECT_THAT(withoutLooks(all),
        ElementsAre("objc_getClass", // UIResponder
            "MSHookMessageEx", "notify_register_check",
            "objc_getClass", // NSBundle
            "+[NSBundle mainBundle]", "-[NSBundle bundleIdentifier]",
            "objc_getClass", // NSString
            "-[GSCInlineString UTF8String]", "-[GSCInlineString lengthOfBytesUsingEncoding:]"));
    EXPECT_EQ(all.size(), 35u);
    EXPECT_EQ(std::ranges::count(all, "objc_retain"), std::ranges::count(all, "objc_release"));
    EXPECT_EQ(events.size(), 2u); // the hook and the registration
}

TEST_F(CrossingsTest, InTheHomeScreenTheConstructorHooksObservesAndRegistersAndMakesOnlyTheNamesOfItsObservers)
{
    const std::vector<std::string> shakeAndPlace = { "objc_getClass", "MSHookMessageEx", "notify_register_check",
        "objc_getClass", "+[NSBundle mainBundle]", "-[NSBundle bundleIdentifier]", "objc_getClass",
        "-[GSCInlineString UTF8String]", "-[GSCInlineString lengthOfBytesUsingEncoding:]" };
    const std::vector<std::string> observe = { "+[NSString alloc]", "-[GSPlaceholderString initWithUTF8String:]",
        "CFNotificationCenterGetDarwinNotifyCenter", "CFNotificationCenterAddObserver" };
    std::vector<std::string> expected;
    const auto expect = [&expected](const std::vector<std::string>& calls) {
        expected.insert(expected.end(), calls.begin(), calls.end());
    };
    expect(shakeAndPlace);
    for (const int hooksOfAClass : { 1, 3, 1, 1, 2, 1 }) {
        expect({ "objc_getClass" });
        for (int hook = 0; hook < hooksOfAClass; ++hook)
            expect({ "MSHookMessageEx" });
    }
    for (int statusBar = 0; statusBar < 2; ++statusBar) // which inherit the method
        expect({ "objc_getClass", "class_addMethod", "MSHookMessageEx" });
    expect(observe); // the settings
    expect(observe); // the sibling's
    expect({ "notify_register_check" });
    expect(observe); // the screen
    expect(observe); // the shake

    const auto all = crossingsOfLoad();
    EXPECT_EQ(withoutLooks(all), expected);
    EXPECT_EQ(all.size(), 160u);
    EXPECT_EQ(events.size(), 18u); // the hooks, the registrations and the observers
}

TEST_F(CrossingsTest, AnObserverIsToldTheNameThatItAskedForThoughNobodyElseKeepsIt)
{
    using Callback = void (*)(void*, void*, const void*, const void*, const void*);
    using AddObserver = void (*)(void*, void*, Callback, const void*, const void*, std::intptr_t);
    static std::string told;
    const Callback note = [](void*, void*, const void* name, const void*, const void*) {
        told = [static_cast<id>(const_cast<void*>(name)) UTF8String];
    };
    NSMutableString* const name = [[NSMutableString alloc] initWithString:@"net.qorvath.panotra.unheard"];
    const auto addObserver = reinterpret_cast<AddObserver>(hosts::importedSymbol("CFNotificationCenterAddObserver"));
    addObserver(nullptr, nullptr, note, name, nullptr, 0);
    ASSERT_GT([name retainCount], 1u);
    [name release];
    device.home->notify("net.qorvath.panotra.unheard");
    pass();
    EXPECT_EQ(told, "net.qorvath.panotra.unheard");
}

/// No system: the process from which the others are taken.
struct CrossingsOnSystem : CrossingsTest, ::testing::WithParamInterface<std::optional<int>> {
    CrossingsOnSystem()
        : CrossingsTest(GetParam())
    {
    }
};

TEST_P(CrossingsOnSystem, AnAnnouncementAndAStepOfADragCostFewMessagesAndAllocations)
{
    launch();
    struct Cost {
        long messages;
        long allocations; ///< the library's own, and the objects that it makes
    };
    const auto costOf = [](const char* what, const auto& action) {
        hosts::forgetCrossings();
        hosts::recordCrossings(true);
        action();
        hosts::recordCrossings(false);
        const auto& all = hosts::crossings();
        const Cost cost {
            std::ranges::count_if(all, [](const std::string& each) { return each[1] == '['; }),
            std::ranges::count_if(
                all, [](const std::string& each) { return each == "malloc" || each.ends_with(" alloc]"); }),
        };
        std::printf("%s: %ld messages, %ld allocations\n", what, cost.messages, cost.allocations);
        return cost;
    };
    const auto announced = [this](const char* reason, float level) {
        device.home->announce("Audio/Video", reason, level);
    };
    device.preferences->set("net.qorvath.panotra", "replaceHUD", true);
    device.home->notify("net.qorvath.panotra.settingschanged");
    announced("ExplicitVolumeChange", 0.25f);
    pass(1);
    announced("RouteChange", 0.25f);
    const Cost route = costOf("a change of the route", [&] { announced("RouteChange", 0.75f); });
    const Cost level = costOf("a new level", [&] { announced("ExplicitVolumeChange", 0.75f); });
    pass(1);
    device.home->pan(0, 1, 100);
    const Cost step = costOf("a step of a drag", [&] { device.home->pan(0, 2, 120); });
    device.home->pan(0, 3, 120);
    // Old names of keys and of the buttons are asked for first.
    const bool asksTwice = GetParam() == 16;
    EXPECT_GT(route.messages, 0);
    EXPECT_LE(route.messages, asksTwice ? 19 : 15);
    EXPECT_LE(level.messages, asksTwice ? 67 : 61);
    EXPECT_LE(step.messages, 37);
    EXPECT_EQ(route.allocations, 0);
    EXPECT_LE(level.allocations, 3);
    EXPECT_LE(step.allocations, 3);
}

INSTANTIATE_TEST_SUITE_P(Each, CrossingsOnSystem, ::testing::Values(std::nullopt, 12, 16),
    [](const auto& info) { return info.param ? "iOS" + std::to_string(*info.param) : "WithoutASystem"; });

} // namespace panotra::testing
