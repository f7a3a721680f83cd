/// What an announcement costs: handles on the preference domain, replacements of it, allocations.
///
/// Handles and replacements are the logic's own and exact. Allocations include the simulated host's, the trace
/// switched off: upper bounds, so that nothing grows unseen.
#include "tests/cost/Allocations.h"
#include "tests/support/HomeScreenTest.h"

#include <iostream>

namespace panotra {
namespace {

struct AnnouncementCosts : testing::HomeScreenTest {
    AnnouncementCosts()
    {
        storeLevels(0.5);
        launch();
        device.traceSink = nullptr;
        // Selectors and classes are looked up on first use; what is counted is the second time.
        announce("Audio/Video", "ExplicitVolumeChange", 0.25f);
        announce("Audio/Video", "RouteChange", 0.5f);
        announce("Audio/Video", "ExplicitVolumeChange", 0.5f);
        pass(1);
    }

    void expectCost(
        const char* reason, float level, std::size_t handles, std::size_t replacements, std::size_t mostAllocations)
    {
        const std::size_t handlesBefore = device.preferences->handlesOpened();
        const std::size_t replacementsBefore = device.preferences->replacements();
        const std::size_t allocationsBefore = testing::allocationCount();
        device.home->announce("Audio/Video", reason, level);
        const std::size_t allocations = testing::allocationCount() - allocationsBefore;
        EXPECT_EQ(device.preferences->handlesOpened() - handlesBefore, handles);
        EXPECT_EQ(device.preferences->replacements() - replacementsBefore, replacements);
        EXPECT_LE(allocations, mostAllocations);
        std::cout << reason << ": " << allocations << " allocations\n";
    }
};

TEST_F(AnnouncementCosts, ARouteChangeReadsOneKeyAndWritesNothing)
{
    expectCost("RouteChange", 0.75f, 1, 0, 40);
}

TEST_F(AnnouncementCosts, AnExplicitChangeReadsOneKeyAndWritesOne)
{
    expectCost("ExplicitVolumeChange", 0.75f, 2, 1, 65);
}

TEST_F(AnnouncementCosts, AnExplicitChangeOfAShownMixerWritesAllTwelveKeysInOneReplacement)
{
    controller().createUI();
    pass(1);
    expectCost("ExplicitVolumeChange", 0.75f, 1, 1, 110);
}

TEST_F(AnnouncementCosts, AnUnknownReasonReadsOneKeyAndWritesNothing)
{
    expectCost("Anything", 0.75f, 1, 0, 40);
}

} // namespace
} // namespace panotra
