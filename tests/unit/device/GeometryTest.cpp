/// Plane geometry.
#include "simulator/device/Geometry.h"

#include <gtest/gtest.h>

#include <cmath>

namespace panotra::sim {
namespace {

TEST(Geometry, ATransformMapsAPointAsThePlatformWritesIt)
{
    EXPECT_EQ(apply({ 1, 2, 3, 4, 5, 6 }, { 10, 100 }), (Point { 1 * 10 + 3 * 100 + 5, 2 * 10 + 4 * 100 + 6 }));
}

TEST(Geometry, TheInverseTakesEveryPointBack)
{
    const Transform transform { 2, 1, -1, 3, 7, -4 };
    const auto back = inverse(transform);
    ASSERT_TRUE(back.has_value());
    const Point point = apply(*back, apply(transform, { 12, -5 }));
    EXPECT_NEAR(point.x, 12, 1e-12);
    EXPECT_NEAR(point.y, -5, 1e-12);
}

TEST(Geometry, AFlatteningTransformHasNoInverse)
{
    EXPECT_FALSE(inverse({ 0, 0, 0, 0, 1, 1 }).has_value());
    EXPECT_FALSE(inverse({ 1, 2, 2, 4, 0, 0 }).has_value());
    EXPECT_FALSE(inverse({ 1, 0, 0, 0, 0, 0 }).has_value());
    EXPECT_FALSE(inverse({ std::nan(""), 0, 0, 1, 0, 0 }).has_value());
}

TEST(Geometry, AQuarterTurnSwapsWidthAndHeight)
{
    EXPECT_EQ(boundingSize({ 3, 4 }, { 0, 1, -1, 0, 0, 0 }), (Size { 4, 3 }));
}

TEST(Geometry, AnEighthTurnNeedsTheDiagonalOfTheSides)
{
    const double half = std::sqrt(0.5);
    const Size size = boundingSize({ 2, 4 }, { half, half, -half, half, 0, 0 });
    EXPECT_NEAR(size.width, 6 * half, 1e-12);
    EXPECT_NEAR(size.height, 6 * half, 1e-12);
}

TEST(Geometry, ANegativeSizeKeepsItsSignUntilItIsTurned)
{
    EXPECT_EQ(boundingSize({ -3, 4 }, {}), (Size { -3, 4 }));
    EXPECT_EQ(boundingSize({ -3, 4 }, { 2, 0, 0, 2, 0, 0 }), (Size { -6, 8 }));
    EXPECT_EQ(boundingSize({ -3, 4 }, { 0, 1, -1, 0, 0, 0 }), (Size { 4, 3 }));
}

TEST(Geometry, AMirroredRectangleHasTheBoxOfTheOtherOne)
{
    EXPECT_EQ(boundingSize({ 3, 4 }, { -1, 0, 0, 1, 0, 0 }), (Size { 3, 4 }));
}

} // namespace
} // namespace panotra::sim
