/// Processes that lack a class, or have it empty: the home screen lives on.
#include "tests/hosts/HostTest.h"

#include "simulator/systems/Systems.h"
#include "tests/hosts/HostileSteps.h"
#include "tests/hosts/Imports.h"

#include <optional>
#include <string_view>

namespace panotra::testing {

namespace {

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

INSTANTIATE_TEST_SUITE_P(Hostile, ProcessWithout, ::testing::ValuesIn(classesOfTheProcess), testNameOfClass);
INSTANTIATE_TEST_SUITE_P(Hostile, ProcessWithAnEmpty, ::testing::ValuesIn(classesThatMayBeEmpty()), testNameOfClass);

/// Of the newest system, what the mixer asks there and nowhere else included.
struct NewestProcessWithout : HostTest, ::testing::WithParamInterface<const char*> {
    NewestProcessWithout()
        : HostTest(systems::newest)
    {
    }
};

TEST_P(NewestProcessWithout, TheClassLivesOn)
{
    device.classes->setPresent(GetParam(), false);
    launch();
    liveADay(device, [this](double seconds) { pass(seconds); });
    EXPECT_EQ(countOf("launched"), std::string(GetParam()) == "SpringBoard" ? 0u : 1u);
    EXPECT_GT(countOf("schedule"), 0u) << "the mixer has lived through it";
}

INSTANTIATE_TEST_SUITE_P(Hostile, NewestProcessWithout,
    ::testing::Values("SpringBoard", "UIApplication", "AVSystemController", "SBAVSystemControllerCache",
        "SBRingerControl", "SBHUDController", "SBVolumeControl", "UIWindowScene", "SBWindowScene"),
    testNameOfClass);

} // namespace panotra::testing
