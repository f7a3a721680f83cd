/// How levels read.
#include "model/Percentage.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

namespace panotra {
namespace {

std::string percentage(CGFloat level)
{
    return percentageText(level).data();
}

TEST(Percentage, RoundsToTheNearestWholeNumber)
{
    EXPECT_EQ(percentage(0), "0%");
    EXPECT_EQ(percentage(0.004), "0%");
    EXPECT_EQ(percentage(0.005), "1%");
    EXPECT_EQ(percentage(0.0625), "6%");
    EXPECT_EQ(percentage(0.5), "50%");
    EXPECT_EQ(percentage(0.994), "99%");
    EXPECT_EQ(percentage(1), "100%");
}

TEST(Percentage, TakesHalvesAwayFromZero)
{
    EXPECT_EQ(percentage(0.125), "13%");
    EXPECT_EQ(percentage(0.375), "38%");
    EXPECT_EQ(percentage(0.625), "63%");
    EXPECT_EQ(percentage(-0.125), "-13%");
}

TEST(Percentage, GoesThroughA32BitFloat)
{
    EXPECT_EQ(percentage(0.00499999999), "1%"); // 0.499999999 as a float is 0.5
}

TEST(Percentage, IsNotLimitedToAHundred)
{
    EXPECT_EQ(percentage(1.5), "150%");
    EXPECT_EQ(percentage(-0.25), "-25%");
}

TEST(Percentage, SurvivesEveryNumber)
{
    EXPECT_EQ(percentage(1e300), "2147483647%");
    EXPECT_EQ(percentage(21474836.48), "2147483647%"); // the first that is too large
    EXPECT_EQ(percentage(-1e300), "-2147483648%");
    EXPECT_EQ(percentage(std::numeric_limits<CGFloat>::quiet_NaN()), "0%");
    EXPECT_EQ(percentage(std::numeric_limits<CGFloat>::infinity()), "2147483647%");
}

} // namespace
} // namespace panotra
