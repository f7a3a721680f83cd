/// The platform's hit test.
#include "tests/unit/device/DeviceTest.h"

#include <cmath>

namespace panotra::sim {
namespace {

class HitTestTest : public DeviceTest {
protected:
    View& parent = makeView({ 0, 0, 100, 100 });
    View& child = makeView({ 20, 20, 40, 40 });

    HitTestTest() { parent.addSubview(child); }
};

TEST_F(HitTestTest, TheDeepestViewUnderThePointIsHit)
{
    EXPECT_EQ(parent.hitTest({ 30, 30 }), &child);
    EXPECT_EQ(parent.hitTest({ 10, 10 }), &parent);
    EXPECT_EQ(parent.hitTest({ -1, 10 }), nullptr);
}

TEST_F(HitTestTest, BoundsAreHalfOpen)
{
    EXPECT_EQ(parent.hitTest({ 0, 0 }), &parent);
    EXPECT_EQ(parent.hitTest({ 100, 50 }), nullptr);
    EXPECT_EQ(parent.hitTest({ 50, 100 }), nullptr);
    EXPECT_EQ(parent.hitTest({ 20, 20 }), &child);
    EXPECT_EQ(parent.hitTest({ 60, 30 }), &parent);
    EXPECT_EQ(parent.hitTest({ std::nextafter(60, 0), 30 }), &child);
}

TEST_F(HitTestTest, TheFrontmostSubviewComesFirst)
{
    View& front = makeView({ 20, 20, 40, 40 });
    parent.addSubview(front);
    EXPECT_EQ(parent.hitTest({ 30, 30 }), &front);
    parent.bringSubviewToFront(child);
    EXPECT_EQ(parent.hitTest({ 30, 30 }), &child);
}

TEST_F(HitTestTest, WhatIsHiddenIsLeftOutWithAllBelowIt)
{
    child.setHidden(true);
    EXPECT_EQ(parent.hitTest({ 30, 30 }), &parent);
    parent.setHidden(true);
    EXPECT_EQ(parent.hitTest({ 30, 30 }), nullptr);
}

TEST_F(HitTestTest, WhatIsAllButInvisibleIsLeftOut)
{
    child.setAlpha(0.01);
    EXPECT_EQ(parent.hitTest({ 30, 30 }), &child);
    child.setAlpha(0.0099);
    EXPECT_EQ(parent.hitTest({ 30, 30 }), &parent);
}

TEST_F(HitTestTest, WhatTakesNoInteractionIsLeftOutWithAllBelowIt)
{
    View& grandchild = makeView({ 0, 0, 40, 40 });
    child.addSubview(grandchild);
    EXPECT_EQ(parent.hitTest({ 30, 30 }), &grandchild);
    child.interaction = false;
    EXPECT_EQ(parent.hitTest({ 30, 30 }), &parent);
}

TEST_F(HitTestTest, AViewOutsideItsSuperviewIsNotHit)
{
    View& outside = makeView({ 90, 90, 40, 40 });
    parent.addSubview(outside);
    EXPECT_EQ(parent.hitTest({ 95, 95 }), &outside);
    EXPECT_EQ(parent.hitTest({ 110, 110 }), nullptr);
}

TEST_F(HitTestTest, AFlattenedViewIsNotHit)
{
    child.setTransform({ 0, 0, 0, 0, 0, 0 });
    EXPECT_EQ(parent.hitTest({ 40, 40 }), &parent);
}

TEST_F(HitTestTest, ANegativeSizeIsNeverHit)
{
    child.setFrame({ 60, 20, -40, 40 });
    EXPECT_EQ(parent.hitTest({ 30, 30 }), &parent);
}

TEST_F(HitTestTest, AScaledViewIsHitWhereItIsSeen)
{
    child.setTransform({ 0.5, 0, 0, 0.5, 0, 0 });
    EXPECT_EQ(parent.hitTest({ 25, 40 }), &parent);
    EXPECT_EQ(parent.hitTest({ 31, 40 }), &child);
    child.setTransform({ 2, 0, 0, 2, 0, 0 });
    EXPECT_EQ(parent.hitTest({ 1, 1 }), &child);
}

TEST_F(HitTestTest, ATurnedViewIsHitWhereItIsSeen)
{
    child.setFrame({ 10, 40, 80, 20 });
    child.setTransform({ 0, 1, -1, 0, 0, 0 });
    EXPECT_EQ(parent.hitTest({ 20, 50 }), &parent);
    EXPECT_EQ(parent.hitTest({ 50, 20 }), &child);
    const double half = std::sqrt(0.5);
    child.setTransform({ half, half, -half, half, 0, 0 });
    EXPECT_EQ(parent.hitTest({ 70, 70 }), &child);
    EXPECT_EQ(parent.hitTest({ 70, 30 }), &parent);
}

} // namespace
} // namespace panotra::sim
