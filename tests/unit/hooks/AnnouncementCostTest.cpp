/// What an announcement costs, counted: handles on the preference domain and replacements of it.
#include "tests/support/HomeScreenTest.h"

namespace panotra {
namespace {

struct Cost {
    std::size_t handles;
    std::size_t replacements;
    friend bool operator==(const Cost&, const Cost&) = default;
    friend std::ostream& operator<<(std::ostream& out, const Cost& cost)
    {
        return out << cost.handles << " handles, " << cost.replacements << " replacements";
    }
};

struct AnnouncementCost : testing::HomeScreenTest {
    AnnouncementCost()
    {
        storeLevels(0.5);
        launch();
    }
    Cost costOf(const char* reason, float level)
    {
        const std::size_t handles = device.preferences->handlesOpened();
        const std::size_t replacements = device.preferences->replacements();
        announce("Audio/Video", reason, level);
        return { device.preferences->handlesOpened() - handles, device.preferences->replacements() - replacements };
    }
};

TEST_F(AnnouncementCost, ARouteChangeReadsOnceAndWritesNothing)
{
    EXPECT_EQ(costOf("RouteChange", 0.75f), (Cost { 1, 0 }));
}

TEST_F(AnnouncementCost, AnExplicitChangeReadsOnceAndWritesOnce)
{
    EXPECT_EQ(costOf("ExplicitVolumeChange", 0.75f), (Cost { 2, 1 }));
}

TEST_F(AnnouncementCost, AnExplicitChangeOfAShownMixerReadsItsSliderAndWritesAllTwelveAtOnce)
{
    controller().createUI();
    EXPECT_EQ(costOf("ExplicitVolumeChange", 0.75f), (Cost { 1, 1 }));
}

TEST_F(AnnouncementCost, AnUnknownReasonReadsOnceAndWritesNothing)
{
    EXPECT_EQ(costOf("Anything", 0.75f), (Cost { 1, 0 }));
}

} // namespace
} // namespace panotra
