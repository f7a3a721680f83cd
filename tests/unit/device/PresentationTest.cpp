/// What the screen shows while animations run.
#include "simulator/device/Presentation.h"
#include "tests/unit/device/DeviceTest.h"

#include <cmath>

namespace panotra::sim {
namespace {

class PresentationTest : public DeviceTest {
protected:
    double shownAlpha(const View& view, double time) const
    {
        return presentationValue(*device.runLoop, view, AnimatedProperty::Alpha, time)[0];
    }
};

TEST(EaseInEaseOut, StartsAndEndsAtTheEnds)
{
    EXPECT_EQ(easeInEaseOut(0), 0);
    EXPECT_EQ(easeInEaseOut(1), 1);
    EXPECT_EQ(easeInEaseOut(-3), 0);
    EXPECT_EQ(easeInEaseOut(3), 1);
    EXPECT_EQ(easeInEaseOut(std::nan("")), 0);
}

TEST(EaseInEaseOut, IsSlowAtBothEndsAndSymmetrical)
{
    EXPECT_NEAR(easeInEaseOut(0.5), 0.5, 1e-12);
    EXPECT_NEAR(easeInEaseOut(0.1), 0.019722, 1e-6);
    EXPECT_NEAR(easeInEaseOut(0.25), 0.129162, 1e-6);
    EXPECT_NEAR(easeInEaseOut(0.75), 1 - 0.129162, 1e-6);
}

TEST(EaseInEaseOut, NeverTurnsBack)
{
    double last = 0;
    for (int step = 1; step <= 1000; ++step) {
        const double value = easeInEaseOut(step / 1000.0);
        EXPECT_GT(value, last);
        last = value;
    }
}

TEST_F(PresentationTest, WithoutAnimationTheModelValueIsShown)
{
    View& view = makeView();
    view.setAlpha(0.3);
    EXPECT_EQ(shownAlpha(view, 0), 0.3);
}

TEST_F(PresentationTest, TheOldValueIsShownUntilTheDelayIsOver)
{
    View& view = makeView();
    device.runLoop->animate(
        1, 0.5, 0, [&] { view.setAlpha(0); }, nullptr);
    EXPECT_EQ(shownAlpha(view, 0), 1);
    EXPECT_EQ(shownAlpha(view, 0.5), 1);
    EXPECT_NEAR(shownAlpha(view, 1), 0.5, 1e-12);
    EXPECT_NEAR(shownAlpha(view, 0.75), 1 - 0.129162, 1e-6);
    EXPECT_EQ(shownAlpha(view, 1.5), 0);
}

TEST_F(PresentationTest, ANewAnimationStartsFromWhatIsShownAtThatMoment)
{
    View& view = makeView();
    device.runLoop->animate(
        1, 0, 0, [&] { view.setAlpha(0); }, nullptr);
    device.runLoop->wait(0.5);
    device.runLoop->animate(
        1, 0, 0, [&] { view.setAlpha(1); }, nullptr);
    EXPECT_NEAR(shownAlpha(view, 0.5), 0.5, 1e-12);
    EXPECT_NEAR(shownAlpha(view, 1), 0.75, 1e-12);
    EXPECT_EQ(shownAlpha(view, 1.5), 1);
}

TEST_F(PresentationTest, OtherPropertiesAreShownAsTheyAre)
{
    View& view = makeView({ 0, 0, 10, 10 });
    device.runLoop->animate(
        1, 0, 0, [&] { view.setAlpha(0); }, nullptr);
    EXPECT_EQ(presentationValue(*device.runLoop, view, AnimatedProperty::Bounds, 0.5), (PropertyValue { 10, 10 }));
}

TEST_F(PresentationTest, AViewThatSwellsGoesThroughTheScalesBetween)
{
    View& view = makeView();
    device.runLoop->animate(
        1, 0, 0,
        [&] {
            view.setTransform({ 1.5, 0, 0, 1.5, 0, 0 });
        },
        nullptr);
    const PropertyValue shown = presentationValue(*device.runLoop, view, AnimatedProperty::Transform, 0.5);
    EXPECT_NEAR(shown[0], 1.25, 1e-12);
    EXPECT_NEAR(shown[3], 1.25, 1e-12);
}

TEST_F(PresentationTest, AViewThatTurnsKeepsItsSizeOnTheWay)
{
    View& view = makeView();
    device.runLoop->animate(
        1, 0, 0,
        [&] {
            view.setTransform({ 0, 1, -1, 0, 0, 0 });
        },
        nullptr);
    const PropertyValue shown = presentationValue(*device.runLoop, view, AnimatedProperty::Transform, 0.5);
    const double half = std::sqrt(0.5);
    EXPECT_NEAR(shown[0], half, 1e-12);
    EXPECT_NEAR(shown[1], half, 1e-12);
    EXPECT_NEAR(shown[2], -half, 1e-12);
    EXPECT_NEAR(shown[3], half, 1e-12);
}

TEST_F(PresentationTest, BetweenTheTwoLandscapesItTurnsTheShorterWay)
{
    View& view = makeView();
    const double almostRound = 0.9 * std::acos(-1.0);
    const double sine = std::sin(almostRound);
    const double cosine = std::cos(almostRound);
    view.setTransform({ cosine, sine, -sine, cosine, 0, 0 });
    device.runLoop->animate(
        1, 0, 0,
        [&] {
            view.setTransform({ cosine, -sine, sine, cosine, 0, 0 });
        },
        nullptr);
    const PropertyValue shown = presentationValue(*device.runLoop, view, AnimatedProperty::Transform, 0.5);
    EXPECT_NEAR(shown[0], -1, 1e-12);
    EXPECT_NEAR(shown[1], 0, 1e-12);
}

TEST_F(PresentationTest, AnUnsetBackgroundFadesInFromClear)
{
    View& view = makeView();
    device.runLoop->animate(
        1, 0, 0,
        [&] {
            view.setBackground(Rgba { 0, 0, 0, 1 });
        },
        nullptr);
    EXPECT_NEAR(presentationValue(*device.runLoop, view, AnimatedProperty::Background, 0.5)[3], 0.5, 1e-12);
}

} // namespace
} // namespace panotra::sim
