/// What moves while the root view turns, and in which order views are told.
#include "simulator/device/Animation.h"
#include "tests/support/KnownFacts.h"
#include "tests/support/MixerTest.h"

namespace panotra {
namespace {

using testing::isNear;
using testing::isRectangle;

struct Turning : testing::MixerTest {
    Turning() { storeLevels(0.5); }

    /// The animations that run, by their first and only duration here.
    const sim::Animation* animationOf(double duration) const
    {
        for (const auto& animation : device.runLoop->animations()) {
            if (animation->duration == duration)
                return animation.get();
        }
        return nullptr;
    }
    /// The views that an animation moves in such a way, by name, in the order in which they were set.
    std::vector<std::string> moved(const sim::Animation& animation, sim::AnimatedProperty property)
    {
        std::vector<sim::View*> views;
        for (const sim::Animation::Change& change : animation.changes()) {
            if (change.property == property)
                views.push_back(change.view);
        }
        return namesOf(views);
    }
};

using Moved = std::vector<std::string>;

TEST_F(Turning, OnlyTheRootMovesWhileItTurnsAndEveryFrameIsThereAtOnce)
{
    for (const int style : { panel, banner }) {
        show(style);
        pass(1);
        for (const std::int64_t orientation : { 3, 1, 4, 1 }) {
            turnTo(orientation);
            const sim::Animation* const turn = animationOf(0.3);
            ASSERT_NE(turn, nullptr);
            for (const auto property :
                { sim::AnimatedProperty::Transform, sim::AnimatedProperty::Center, sim::AnimatedProperty::Bounds })
                EXPECT_EQ(moved(*turn, property), Moved { "_rootView" }) << "style " << style;
            for (const auto& animation : device.runLoop->animations()) {
                if (animation.get() == turn)
                    continue;
                EXPECT_EQ(moved(*animation, sim::AnimatedProperty::Center), Moved {});
                EXPECT_EQ(moved(*animation, sim::AnimatedProperty::Bounds), Moved {});
            }
            pass(1);
        }
        dismiss();
    }
}

TEST_F(Turning, TheRootIsTurnedBeforeItIsFittedToTheWindow)
{
    show(panel);
    pass(1);
    turnTo(3);
    const sim::Animation* const turn = animationOf(0.3);
    ASSERT_NE(turn, nullptr);
    EXPECT_EQ(turn->changes().at(0).property, sim::AnimatedProperty::Transform);
    EXPECT_TRUE(isRectangle(frameOf(view("_rootView")), CGRectMake(0, 0, 375, 667)));
}

TEST_F(Turning, TheVeryFirstMixerOfAProcessIsBuiltInATurnedScreen)
{
    // No turn follows that would mend what was built askew.
    device.screen->orientation = 3;
    show(panel);
    const sim::View& root = view("_rootView");
    EXPECT_EQ(animationOf(0.3), nullptr);
    EXPECT_TRUE(isRectangle(frameOf(root), CGRectMake(0, 0, 375, 667)));
    EXPECT_TRUE(isNear(root.bounds.width, 667));
    EXPECT_TRUE(isNear(root.bounds.height, 375));
    EXPECT_TRUE(isNear(root.transform.b, 1));
}

TEST_F(Turning, SlidersAreToldToRestInTheOrderOfTheirSlotsTheEarpieceFirst)
{
    show(panel);
    pass(1);
    controller().resetTransforms();
    ASSERT_EQ(device.runLoop->runningAnimations(), 1u);
    Moved expected;
    for (const testing::KnownSlider& slider : testing::knownSliders)
        expected.push_back("_volumeView" + std::to_string(slider.slot));
    EXPECT_EQ(moved(*device.runLoop->animations().back(), sim::AnimatedProperty::Transform), expected);
}

TEST_F(Turning, ThePanelIsScaledOnceEverythingInItHasItsFrame)
{
    store("scale", 0.5);
    show(panel);
    for (const std::int64_t orientation : { 3, 1 }) {
        turnTo(orientation);
        const bool isUpright = orientation == 1;
        EXPECT_EQ(view("_containerView").transform.a, 0.5);
        EXPECT_TRUE(isNear(view("_containerView").bounds.width, isUpright ? 320 : 480));
        EXPECT_TRUE(isNear(view("_groupView0").frame().width, isUpright ? 313.6 : 153.6));
    }
}

} // namespace
} // namespace panotra
