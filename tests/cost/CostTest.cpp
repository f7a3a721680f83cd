/// What showing, dragging and laying out cost. Views, handles and replacements are the logic's own and exact;
/// allocations include the simulated host's, so that they are bounded and not fixed.
#include "tests/cost/Allocations.h"
#include "tests/support/KnownFacts.h"
#include "tests/support/MixerTest.h"

namespace panotra {
namespace {

struct Cost {
    std::size_t views; ///< created and still there, those that the host makes inside its own included
    std::size_t handles; ///< opened on preference domains
    std::size_t replacements; ///< of a domain's file
    friend bool operator==(const Cost&, const Cost&) = default;
    friend std::ostream& operator<<(std::ostream& out, const Cost& cost)
    {
        return out << cost.views << " views, " << cost.handles << " handles, " << cost.replacements << " replacements";
    }
};

constexpr std::int64_t began = 1, changed = 2, ended = 3;

struct Costs : testing::MixerTest {
    Costs() { device.traceSink = nullptr; } // watching costs too

    template <typename Work> Cost costOf(Work work)
    {
        const Cost before = total();
        const std::size_t allocationsBefore = testing::allocationCount();
        work();
        m_allocations = testing::allocationCount() - allocationsBefore;
        const Cost after = total();
        RecordProperty("allocations" + std::to_string(++m_measurements), std::to_string(m_allocations));
        return { after.views - before.views, after.handles - before.handles, after.replacements - before.replacements };
    }
    /// Of the work measured last.
    std::size_t allocations() const { return m_allocations; }

    void launchWith(int style)
    {
        store("activeStyle", style);
        launch();
        processValues.presentedViaActivator = true;
    }
    Cost costOfShowing()
    {
        return costOf([] { controller().createUI(); });
    }
    Cost costOfDragging(int slot, std::int64_t state, double x)
    {
        return costOf([=, this] { device.home->pan(slot, state, x); });
    }

private:
    Cost total() const
    {
        return { device.classes->liveObjects("UIView"), device.preferences->handlesOpened(),
            device.preferences->replacements() };
    }

    std::size_t m_allocations = 0;
    int m_measurements = 0;
};

constexpr std::size_t sliders = testing::knownSlotCount;
// A panel is a window, a root, a container, two backdrops, three groups with a title each, and sliders of a tile, two
// backdrops and two labels. The host puts a content and an effect view into each backdrop.
constexpr std::size_t panelBackdrops = 2 + 2 * sliders;
constexpr std::size_t panelViews = 5 + 6 + 5 * sliders + 2 * panelBackdrops;
// A banner lacks one backdrop with its two views; its sliders have an image in place of a label.
constexpr std::size_t bannerBackdrops = panelBackdrops - 1;
constexpr std::size_t bannerViews = panelViews - 3;

TEST_F(Costs, TheFirstShowingEverReadsOnceAndWritesTheTwelveLevelsOnce)
{
    launchWith(panel);
    // One handle to load, one for each slider that is drawn; only the first of the twelve saves changes anything.
    EXPECT_EQ(costOfShowing(), (Cost { panelViews, 1 + sliders, 1 }));
    EXPECT_LE(allocations(), 2000u);
}

TEST_F(Costs, ALaterShowingWritesNothing)
{
    storeLevels(0.5);
    launchWith(panel);
    EXPECT_EQ(costOfShowing(), (Cost { panelViews, 1 + sliders, 0 }));
    EXPECT_EQ(device.classes->liveObjects("PNOVolumeView"), sliders);
    EXPECT_EQ(device.classes->liveObjects("_UIBackdropView"), panelBackdrops);
    EXPECT_EQ(device.classes->liveObjects("UILabel"), 3 + 2 * sliders);
    EXPECT_LE(allocations(), 2000u);
}

TEST_F(Costs, ShowingABanner)
{
    storeLevels(0.5);
    launchWith(banner);
    EXPECT_EQ(costOfShowing(), (Cost { bannerViews, 1 + sliders, 0 }));
    EXPECT_EQ(device.classes->liveObjects("_UIBackdropView"), bannerBackdrops);
    EXPECT_EQ(device.classes->liveObjects("UILabel"), 3 + sliders);
    EXPECT_EQ(device.classes->liveObjects("UIImageView"), sliders);
    EXPECT_LE(allocations(), 2000u);
}

TEST_F(Costs, ShowingAgainWhatIsShownMakesReadsAndWritesNothing)
{
    storeLevels(0.5);
    launchWith(panel);
    controller().createUI();
    pass(1);
    EXPECT_EQ(costOfShowing(), (Cost { 0, 0, 0 }));
    EXPECT_LE(allocations(), 10u);
}

TEST_F(Costs, AStepOfADragOpensOneHandleAndReplacesOnce)
{
    storeLevels(0.5);
    launchWith(panel);
    controller().createUI();
    pass(1);
    EXPECT_EQ(costOfDragging(9, began, 40), (Cost { 0, 1, 1 }));
    EXPECT_EQ(costOfDragging(9, changed, 60), (Cost { 0, 1, 1 }));
    EXPECT_LE(allocations(), 100u);
    EXPECT_EQ(costOfDragging(9, changed, 60), (Cost { 0, 1, 0 })) << "a finger at rest changes nothing";
    EXPECT_EQ(costOfDragging(9, ended, 80), (Cost { 0, 2, 1 })) << "the end saves twice, the same";
    EXPECT_LE(allocations(), 180u);
}

TEST_F(Costs, AStepOfADragThatReachesTheSystemCostsNoMoreOfIt)
{
    storeLevels(0.5);
    launchWith(panel);
    controller().createUI();
    pass(1);
    EXPECT_EQ(costOfDragging(0, changed, 60), (Cost { 0, 1, 1 }));
    EXPECT_LE(allocations(), 110u);
}

TEST_F(Costs, LayingOutTouchesNeitherViewsNorPreferences)
{
    storeLevels(0.5);
    for (const int style : { panel, banner }) {
        show(style);
        pass(1);
        turnTo(3); // the host makes its status bar when it is first asked for it
        turnTo(1);
        device.screen->orientation = 3;
        EXPECT_EQ(costOf([] { controller().layoutSubviews(); }), (Cost { 0, 0, 0 }));
        EXPECT_LE(allocations(), 60u);
        device.screen->orientation = 1;
        dismiss();
    }
}

TEST_F(Costs, TenThousandShowingsLeaveEverythingWhereItWas)
{
    constexpr std::array<std::uint16_t, 2> styles { banner, panel };
    storeLevels(0.5);
    launch();
    const auto showAndDismiss = [this](std::uint16_t style) {
        processValues.activeStyle = style;
        presentOnDemand();
        pass(0.3);
        controller().destroyHUDWindow();
        pass(0.4);
        device.classes->drainAutoreleasePool();
    };
    const auto pending = [this] {
        return device.runLoop->pendingCount() + device.runLoop->runningAnimations();
    };
    for (const std::uint16_t style : styles) // what the first of each brings into the process stays
        showAndDismiss(style);
    const std::size_t objects = device.classes->liveObjects();
    const std::size_t replacements = device.preferences->replacements();
    for (int i = 0; i < 5000; ++i) {
        for (const std::uint16_t style : styles)
            showAndDismiss(style);
        ASSERT_EQ(device.classes->liveObjects(), objects) << "after " << 2 * i + 2;
        ASSERT_EQ(pending(), 0u);
    }
    EXPECT_FALSE(controller().window());
    EXPECT_EQ(device.preferences->replacements(), replacements);
}

} // namespace
} // namespace panotra
