/// What the library does to a process that is only just coming up, and to one whose hooking framework is another's.
#include "tests/hosts/HostTest.h"

#include "tests/hosts/HostileSteps.h"
#include "tests/hosts/Imports.h"

namespace panotra::testing {

namespace {

const char* const hookedClasses[] = { "UIResponder", "SpringBoard", "AVSystemController", "SBSoundController",
    "SBMediaController", "SBHUDController", "VolumeControl", "UIStatusBar", "_UIStatusBar" };

class Load : public HostTest {
protected:
    Load() { device.classes->setPresent("_UIStatusBar", true); }
};

class LoadWithoutMethodsOf : public Load, public ::testing::WithParamInterface<const char*> { };

} // namespace

TEST_F(Load, SendsNoClassOfTheHomeScreenItsFirstMessage)
{
    const std::set<std::string> before = hosts::initializedClasses();
    for (const char* const name : hookedClasses)
        EXPECT_FALSE(before.contains(name)) << name;
    library.load();
    EXPECT_EQ(hosts::initializedClasses(), before);
    [AVSystemController class];
    EXPECT_TRUE(hosts::initializedClasses().contains("AVSystemController"));
}

/// The class is there, and the method that would be hooked is not: on other systems it has moved.
TEST_P(LoadWithoutMethodsOf, AClassSendsItNoMessageEither)
{
    hosts::emptyClass(GetParam());
    const std::set<std::string> before = hosts::initializedClasses();
    library.load();
    EXPECT_EQ(hosts::initializedClasses(), before);
}

INSTANTIATE_TEST_SUITE_P(Hostile, LoadWithoutMethodsOf, ::testing::ValuesIn(hookedClasses), testNameOfClass);

namespace {

class LoadUnder : public Load, public ::testing::WithParamInterface<hosts::HookingFramework> {
protected:
    LoadUnder() { hosts::chooseHookingFramework(GetParam()); }
};

IMP viewsSetFrame()
{
    return class_getMethodImplementation([UIView class], @selector(setFrame:));
}

int otherCalls = 0;
IMP replacedByOther = nullptr;

void otherSetFrame(id self, SEL selector, DeviceRect frame)
{
    ++otherCalls;
    reinterpret_cast<void (*)(id, SEL, DeviceRect)>(replacedByOther)(self, selector, frame);
}

} // namespace

TEST_P(LoadUnder, AFrameworkOfAnyKindHooksTheStatusBarsAndNoOtherView)
{
    const IMP before = viewsSetFrame();
    launch();
    EXPECT_EQ(viewsSetFrame(), before);
    for (const char* const bar : { "UIStatusBar", "_UIStatusBar" }) {
        events.clear();
        device.home->setStatusBarFrame(bar, 0, 0, 320, 20);
        EXPECT_EQ(countOf("statusBarFrame"), 1u) << bar;
    }
    liveADay(device, [this](double seconds) { pass(seconds); });
}

TEST_P(LoadUnder, WhoeverHooksAllViewsLaterStillSeesTheStatusBars)
{
    launch();
    replacedByOther = hook("UIView", "setFrame:", reinterpret_cast<IMP>(otherSetFrame));
    otherCalls = 0;
    device.home->setStatusBarFrame("UIStatusBar", 0, 0, 320, 20);
    EXPECT_EQ(otherCalls, 1);
    EXPECT_EQ(countOf("statusBarFrame"), 1u);
}

INSTANTIATE_TEST_SUITE_P(Hostile, LoadUnder,
    ::testing::Values(hosts::HookingFramework::AddsMethods, hosts::HookingFramework::ReplacesInPlace),
    [](const auto& info) {
        return info.param == hosts::HookingFramework::AddsMethods ? "ThatAddsMethods" : "ThatReplacesInPlace";
    });

} // namespace panotra::testing
