/// Comparing rectangles that were worked by hand with those that were computed: equal but for rounding.
#pragma once

#include "platform/CoreGraphics.h"

#include <gtest/gtest.h>

#include <cmath>

namespace panotra::testing {

/// Points. Far below what any screen shows, far above what doubles lose on the way.
inline constexpr double roundingInPoints = 1e-9;

inline bool isNear(double a, double b)
{
    return std::abs(a - b) <= roundingInPoints;
}

inline ::testing::AssertionResult isRectangle(const CGRect& found, const CGRect& expected)
{
    if (isNear(found.origin.x, expected.origin.x) && isNear(found.origin.y, expected.origin.y)
        && isNear(found.size.width, expected.size.width) && isNear(found.size.height, expected.size.height))
        return ::testing::AssertionSuccess();
    const auto print = [](::testing::AssertionResult& out, const CGRect& rect) {
        out << "(" << rect.origin.x << ", " << rect.origin.y << ", " << rect.size.width << ", " << rect.size.height
            << ")";
    };
    auto failure = ::testing::AssertionFailure() << "found ";
    print(failure, found);
    failure << ", expected ";
    print(failure, expected);
    return failure;
}

} // namespace panotra::testing
