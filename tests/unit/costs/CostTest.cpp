/// What the mixer's work costs, counted: handles on the preference domain, replacements of it, views, allocations.
///
/// Handles, replacements and views are the logic's own and exact. Allocations are those of logic and simulated host
/// together, the trace switched off: upper bounds, so that nothing grows unseen.
#include "simulator/device/View.h"
#include "tests/support/HomeScreenTest.h"
#include "tests/unit/costs/AllocationCounter.h"

#include <functional>
#include <iostream>

namespace panotra {
namespace {

struct Cost {
    std::size_t handles;
    std::size_t replacements;
    std::size_t views; ///< how many more live
    std::size_t allocations;
};

struct Costs : testing::HomeScreenTest {
    Costs()
    {
        storeLevels(0.5);
        launch();
        device.traceSink = nullptr;
        // Selectors and classes are looked up on first use; what is counted is the second time.
        controller().createUI();
        pass(1);
        announce("Audio/Video", "ExplicitVolumeChange", 0.25f);
        pass(1);
        controller().destroyHUDWindow();
        pass(1);
    }
    void show()
    {
        controller().createUI();
        pass(1);
    }

    Cost costOf(const std::function<void()>& work)
    {
        const Cost before = counters();
        work();
        const Cost after = counters();
        return { after.handles - before.handles, after.replacements - before.replacements, after.views - before.views,
            after.allocations - before.allocations };
    }
    void expectCost(const char* what, const Cost& atMost, const std::function<void()>& work)
    {
        const Cost cost = costOf(work);
        std::cout << what << ": " << cost.handles << " handles, " << cost.replacements << " replacements, "
                  << cost.views << " views, " << cost.allocations << " allocations\n";
        EXPECT_EQ(cost.handles, atMost.handles);
        EXPECT_EQ(cost.replacements, atMost.replacements);
        EXPECT_EQ(cost.views, atMost.views);
        EXPECT_LE(cost.allocations, atMost.allocations);
    }

private:
    Cost counters() const
    {
        return { device.preferences->handlesOpened(), device.preferences->replacements(),
            device.classes->liveObjects("UIView"), testing::allocationCount() };
    }
};

TEST_F(Costs, ARouteChangeReadsOneKeyAndWritesNothing)
{
    expectCost("route change", { 1, 0, 0, 40 }, [&] { device.home->announce("Audio/Video", "RouteChange", 0.75f); });
}

TEST_F(Costs, AnExplicitChangeReadsOneKeyAndWritesOne)
{
    expectCost("explicit change", { 2, 1, 0, 65 },
        [&] { device.home->announce("Audio/Video", "ExplicitVolumeChange", 0.75f); });
}

TEST_F(Costs, AnExplicitChangeOfAShownMixerWritesAllTwelveKeysInOneReplacement)
{
    show();
    expectCost("explicit change, shown", { 1, 1, 0, 110 },
        [&] { device.home->announce("Audio/Video", "ExplicitVolumeChange", 0.75f); });
}

TEST_F(Costs, AnUnknownReasonReadsOneKeyAndWritesNothing)
{
    expectCost("unknown reason", { 1, 0, 0, 40 }, [&] { device.home->announce("Audio/Video", "Anything", 0.75f); });
}

TEST_F(Costs, ADragStepWritesAllTwelveKeysInOneReplacement)
{
    show();
    device.home->pan(0, 1, 40);
    expectCost("drag step", { 1, 1, 0, 80 }, [&] { device.home->pan(0, 2, 80); });
    device.home->pan(0, 3, 80);
}

TEST_F(Costs, ADragStepThatChangesNothingReplacesNothing)
{
    show();
    device.home->pan(0, 1, 40);
    expectCost("drag step in place", { 1, 0, 0, 80 }, [&] { device.home->pan(0, 2, 40); });
    device.home->pan(0, 3, 40);
}

/// A backdrop is three views: itself, its content, its effect. Window, root, container, the panel's backdrop, three
/// groups with titles: 12. Twelve sliders with two backdrops, caption and percentage: 9 each.
constexpr std::size_t viewsOfBanner = 12 + 12 * 9;

TEST_F(Costs, BuildingThePanelMakesItsViewsAndReplacesTheBlurOfTheShowingBefore)
{
    expectCost("createUI, panel", { 13, 0, viewsOfBanner, 1600 }, [&] { controller().createUI(); });
}

TEST_F(Costs, BuildingTheBannerMakesItsViewsAndWritesNothingThatIsStored)
{
    store("activeStyle", 1);
    reloadSettings();
    expectCost("createUI, banner", { 13, 0, viewsOfBanner, 1600 }, [&] { controller().createUI(); });
}

TEST_F(Costs, ShowingAgainMakesNothing)
{
    show();
    expectCost("createUI, shown", { 0, 0, 0, 5 }, [&] { controller().createUI(); });
}

TEST_F(Costs, ALayoutMakesNoView)
{
    show();
    expectCost("layout", { 0, 0, 0, 50 }, [&] { controller().layoutSubviews(); });
}

} // namespace
} // namespace panotra
