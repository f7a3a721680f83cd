/// What is heard, as numbers.
#include "simulator/window/Tones.h"
#include "tests/unit/window/SessionFixture.h"

namespace panotra::sim {
namespace {

int peakOf(const Samples& samples)
{
    int peak = 0;
    for (const std::int16_t sample : samples)
        peak = std::max(peak, std::abs(int { sample }));
    return peak;
}

TEST(TonesTest, AToneIsAsLoudAsItsLevel)
{
    EXPECT_EQ(peakOf(tone(0)), 0);
    const int whole = peakOf(tone(1));
    EXPECT_GT(whole, 10000);
    EXPECT_NEAR(peakOf(tone(0.25)), whole / 4, 2);
    EXPECT_EQ(peakOf(tone(7)), whole);
    EXPECT_EQ(tone(1).front(), 0) << "it does not crack";
    EXPECT_GT(peakOf(click()), 500);
}

using LevelWatchTest = testing::SessionFixture;

TEST_F(LevelWatchTest, AStepIsAnotherLevelOfTheSamePair)
{
    start();
    LevelWatch watch(*session->device().sound);
    EXPECT_FALSE(watch.hasStepped());
    session->play("press up");
    EXPECT_TRUE(watch.hasStepped());
    EXPECT_DOUBLE_EQ(watch.level(), 0.625);
    EXPECT_FALSE(watch.hasStepped());
    session->play("category Ringtone");
    EXPECT_FALSE(watch.hasStepped()) << "another category has another level";
}

} // namespace
} // namespace panotra::sim
