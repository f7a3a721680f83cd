/// Time that passes faster or slower than the real one.
#include "simulator/window/Pace.h"

#include <gtest/gtest.h>

namespace panotra::sim {
namespace {

using namespace std::chrono_literals;

TEST(PaceTest, FollowsTheRealTimeUntilSomebodyChangesIt)
{
    Pace pace;
    EXPECT_EQ(pace.speed(), "1\u00d7");
    EXPECT_EQ(pace.pass(16667us), 16667us);
    EXPECT_EQ(pace.realTimeFor(3s), 3s);
}

TEST(PaceTest, GoesFromASixteenthToSixteenTimesAndNoFurther)
{
    Pace pace;
    for (int step = 0; step < 20; ++step)
        pace.slower();
    EXPECT_EQ(pace.speed(), "1/16\u00d7");
    EXPECT_EQ(pace.pass(16s), 1s);
    EXPECT_EQ(pace.realTimeFor(1s), 16s);
    for (int step = 0; step < 7; ++step)
        pace.faster();
    EXPECT_EQ(pace.speed(), "8\u00d7");
    for (int step = 0; step < 20; ++step)
        pace.faster();
    EXPECT_EQ(pace.speed(), "16\u00d7");
    EXPECT_EQ(pace.pass(1s), 16s);
    EXPECT_EQ(pace.realTimeFor(16s), 1s);
}

TEST(PaceTest, LosesNoTimeToRounding)
{
    Pace pace;
    for (int step = 0; step < 3; ++step)
        pace.slower();
    std::chrono::microseconds passed { 0 };
    for (int frame = 0; frame < 8000; ++frame)
        passed += pace.pass(16667us);
    EXPECT_EQ(passed, 16667us * 1000);
}

TEST(PaceTest, StandsStillWhilePaused)
{
    Pace pace;
    pace.pauseOrGoOn();
    EXPECT_TRUE(pace.isPaused());
    EXPECT_EQ(pace.pass(1h), 0us);
    EXPECT_EQ(pace.realTimeFor(1us), std::nullopt);
    pace.pauseOrGoOn();
    EXPECT_EQ(pace.pass(1s), 1s);
}

TEST(PaceTest, DoesNotSleepPastWhatIsDue)
{
    Pace pace;
    pace.faster();
    EXPECT_EQ(pace.realTimeFor(3us), 2us) << "rounded up";
    EXPECT_LE(pace.realTimeFor(std::chrono::microseconds::max()), 24h);
}

} // namespace
} // namespace panotra::sim
