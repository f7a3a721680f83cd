/// Orientation and layout: the turn of the root view, and the frames that reach the views.
#include "tests/support/KnownFacts.h"
#include "tests/support/MixerTest.h"

namespace panotra {
namespace {

using testing::isNear;
using testing::isRectangle;

struct Layout : testing::MixerTest {
    Layout() { storeLevels(0.5); }

    std::size_t views() const { return device.classes->liveObjects("UIView"); }
    /// Lays out again and forgets what was seen before.
    void layOut()
    {
        forgetEvents();
        controller().layoutSubviews();
    }
};

// What the layout remembers.

TEST_F(Layout, WithoutAMixerOnlyTheFirstLayoutIsSpent)
{
    launch();
    EXPECT_TRUE(processValues.justCreated);
    layOut();
    EXPECT_FALSE(processValues.justCreated);
    EXPECT_EQ(processValues.previousOrientation, -1);
    EXPECT_TRUE(events.empty());
}

TEST_F(Layout, TheVeryFirstLayoutOfTheProcessDoesNotTurn)
{
    show(panel);
    EXPECT_EQ(durations(), (std::vector<double> { 0.15, 0.15 })) << "the sliders' rest and the fade-in";
    EXPECT_FALSE(processValues.justCreated);
    EXPECT_EQ(processValues.previousOrientation, 1);
}

TEST_F(Layout, AMixerBuiltLaterTurnsEvenThoughNothingTurned)
{
    show(panel);
    dismiss();
    forgetEvents();
    presentOnDemand();
    ASSERT_GE(countOf("animate"), 1u);
    const auto turn = eventsOf("animate")[0];
    EXPECT_EQ(turn["duration"], 0.3);
    EXPECT_EQ(turn["delay"], 0.0);
    EXPECT_EQ(turn["options"], 2);
}

TEST_F(Layout, ALayoutThatFoundNoMixerCountsAsTheFirst)
{
    launch();
    device.home->reorientHUD(true);
    presentOnDemand();
    EXPECT_EQ(durations()[0], 0.3);
}

TEST_F(Layout, HalfATurnTakesTwiceAsLong)
{
    show(panel);
    const auto turnFrom = [this](std::int64_t from, std::int64_t to) {
        turnTo(from);
        forgetEvents();
        turnTo(to);
        EXPECT_EQ(processValues.previousOrientation, to);
        return durations().at(0);
    };
    device.home->rotationDuration = 0.25;
    for (const auto& [from, to] : { std::pair(1, 2), std::pair(2, 1), std::pair(3, 4), std::pair(4, 3) })
        EXPECT_EQ(turnFrom(from, to), 0.5) << from << " to " << to;
    for (const auto& [from, to] : { std::pair(1, 1), std::pair(1, 3), std::pair(1, 4), std::pair(2, 2), std::pair(2, 3),
             std::pair(2, 4), std::pair(3, 1), std::pair(3, 2), std::pair(3, 3), std::pair(4, 1), std::pair(4, 2),
             std::pair(4, 4), std::pair(0, 1), std::pair(2, 0) })
        EXPECT_EQ(turnFrom(from, to), 0.25) << from << " to " << to;
}

TEST_F(Layout, TheFirstLayoutThatFindsAMixerNeverTakesTwiceAsLong)
{
    launch();
    controller().layoutSubviews(); // spends the one without a turn
    device.screen->orientation = 2;
    presentOnDemand();
    EXPECT_EQ(durations()[0], 0.3);
}

TEST_F(Layout, WithoutAHomeScreenApplicationTheTurnTakesNoTime)
{
    show(panel);
    device.classes->setPresent("SpringBoard", false);
    layOut();
    EXPECT_EQ(durations().at(0), 0.0);
}

// The root view.

TEST_F(Layout, TheRootStandsUprightAndCoversTheWindowInEveryOrientation)
{
    struct Row {
        std::int64_t orientation;
        double cosine, sine, width, height;
    };
    show(panel);
    for (const Row& row : { Row { 2, -1, 0, 375, 667 }, Row { 3, 0, 1, 667, 375 }, Row { 4, 0, -1, 667, 375 },
             Row { 1, 1, 0, 375, 667 }, Row { 0, 1, 0, 375, 667 }, Row { 9, 1, 0, 375, 667 } }) {
        turnTo(row.orientation);
        const sim::View& root = view("_rootView");
        EXPECT_TRUE(isNear(root.transform.a, row.cosine) && isNear(root.transform.b, row.sine)) << row.orientation;
        EXPECT_TRUE(isRectangle(frameOf(root), CGRectMake(0, 0, 375, 667)));
        EXPECT_TRUE(isNear(root.bounds.width, row.width) && isNear(root.bounds.height, row.height));
    }
}

TEST_F(Layout, WithAnyOtherStyleTheRootTurnsAndNothingElseHappens)
{
    show(2);
    turnTo(3);
    EXPECT_EQ(durations(), (std::vector<double> {})) << "the very first layout";
    turnTo(1);
    EXPECT_EQ(durations(), (std::vector<double> { 0.3 })) << "no slider is told to rest";
    EXPECT_EQ(view("_rootView").transform, sim::Transform {});
    EXPECT_EQ(processValues.previousOrientation, 1);
}

// The panel.

struct ScreenCase {
    double width, height;
    CGRect upright, turned; ///< the panel at full size, in the root view
    CGRect firstCellUpright, lastCellUpright, firstCellTurned, lastCellTurned;
};

/// Worked by hand beside the geometry's own tests; here they have reached the views.
const CGRect narrowFirst = CGRectMake(8.35, 30.18, 134.475, 51.53);
const CGRect narrowLast = CGRectMake(151.175, 91.89, 134.475, 51.53);
const CGRect narrowFirstTurned = CGRectMake(7.7224, 33.6585, 138.1552, 50.676875);
const CGRect narrowLastTurned = CGRectMake(7.7224, 226.664625, 138.1552, 50.676875);
const CGRect first = CGRectMake(8.84, 30.18, 143.54, 51.53);
const CGRect last = CGRectMake(161.22, 91.89, 143.54, 51.53);
const CGRect firstTurned = CGRectMake(7.7224, 34.5024, 138.1552, 54.472);
const CGRect lastTurned = CGRectMake(7.7224, 241.4256, 138.1552, 54.472);

const ScreenCase screenCases[] = {
    { 320, 480, CGRectMake(10, 20, 300, 440), CGRectMake(20, 10, 440, 300), CGRectMake(8.35, 29.54, 134.475, 46.09),
        CGRectMake(151.175, 85.17, 134.475, 46.09), CGRectMake(7.2872, 33.6585, 126.2256, 50.676875),
        CGRectMake(7.2872, 226.664625, 126.2256, 50.676875) },
    { 320, 568, CGRectMake(10, 44, 300, 480), CGRectMake(44, 10, 480, 300), narrowFirst, narrowLast, narrowFirstTurned,
        narrowLastTurned },
    { 375, 667, CGRectMake(27.5, 93.5, 320, 480), CGRectMake(93.5, 27.5, 480, 320), first, last, firstTurned,
        lastTurned },
    { 414, 736, CGRectMake(47, 128, 320, 480), CGRectMake(128, 47, 480, 320), first, last, firstTurned, lastTurned },
    { 768, 1024, CGRectMake(224, 272, 320, 480), CGRectMake(272, 224, 480, 320), first, last, firstTurned, lastTurned },
};

/// One test a screen: a process measures its screen once.
struct LayoutOnScreen : Layout, ::testing::WithParamInterface<ScreenCase> {
    LayoutOnScreen()
    {
        useScreen(GetParam().width, GetParam().height);
        store("scale", 1.0);
    }
};

TEST_P(LayoutOnScreen, ThePanelFillsExactlyItsReferenceSizeInEveryOrientation)
{
    show(panel);
    for (const std::int64_t orientation : { 1, 3, 2, 4 }) {
        turnTo(orientation);
        const bool isUpright = orientation <= 2;
        const ScreenCase& screen = GetParam();
        EXPECT_TRUE(isRectangle(frameOf(view("_containerView")), isUpright ? screen.upright : screen.turned));
        for (const SlotNumber slot : std::array<SlotNumber, 3> { 11, 3, 7 }) {
            EXPECT_TRUE(
                isRectangle(frameOf(sliderView(slot)), isUpright ? screen.firstCellUpright : screen.firstCellTurned))
                << "slot " << int(slot) << ", orientation " << orientation;
        }
        for (const SlotNumber slot : std::array<SlotNumber, 3> { 2, 6, 10 }) {
            EXPECT_TRUE(
                isRectangle(frameOf(sliderView(slot)), isUpright ? screen.lastCellUpright : screen.lastCellTurned))
                << "slot " << int(slot) << ", orientation " << orientation;
        }
    }
}

TEST_P(LayoutOnScreen, TheBannersCentreFollowsTheOrientation)
{
    show(banner);
    const auto [width, height] = std::pair(GetParam().width, GetParam().height);
    const double y = view("_containerView").center.y;
    for (const bool isHidden : { false, true }) {
        device.screen->statusBarHidden = isHidden;
        for (const std::int64_t orientation : { 3, 1, 4, 2 }) {
            turnTo(orientation);
            // Turned, the middle of the screen's longer side: of the root view itself, or of the status bar along it.
            EXPECT_TRUE(isNear(view("_containerView").center.x, orientation <= 2 ? width / 2 : height / 2));
            EXPECT_EQ(view("_containerView").center.y, y);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Phones, LayoutOnScreen, ::testing::ValuesIn(screenCases), [](const auto& screen) {
    return std::to_string(int(screen.param.width)) + "By" + std::to_string(int(screen.param.height));
});

TEST_F(Layout, ThePanelsPartsStandWhereTheyWereWorkedOutUpright)
{
    show(panel);
    EXPECT_TRUE(isRectangle(frameOf(view("_groupView0")), CGRectMake(3.2, 4.8, 313.6, 153.6)));
    EXPECT_TRUE(isRectangle(frameOf(view("_groupView1")), CGRectMake(3.2, 163.2, 313.6, 153.6)));
    EXPECT_TRUE(isRectangle(frameOf(view("_groupView2")), CGRectMake(3.2, 321.6, 313.6, 153.6)));
    for (const char* title : { "_groupLabel0", "_groupLabel1", "_groupLabel2" })
        EXPECT_TRUE(isRectangle(frameOf(view(title)), CGRectMake(0, 0, 313.6, 25)));
    const CGRect cells[] = { CGRectMake(8.84, 30.18, 143.54, 51.53), CGRectMake(161.22, 30.18, 143.54, 51.53),
        CGRectMake(8.84, 91.89, 143.54, 51.53), CGRectMake(161.22, 91.89, 143.54, 51.53) };
    for (const int group : { 0, 1, 2 }) {
        const std::vector<std::uint8_t> slots = testing::slotsOfGroup(group);
        ASSERT_GE(slots.size(), std::size(cells));
        for (std::size_t cell = 0; cell < std::size(cells); ++cell)
            EXPECT_TRUE(isRectangle(frameOf(sliderView(slots[cell])), cells[cell])) << int(slots[cell]);
    }
}

TEST_F(Layout, ThePanelsPartsStandWhereTheyWereWorkedOutTurned)
{
    show(panel);
    turnTo(4);
    EXPECT_TRUE(isRectangle(frameOf(view("_groupView0")), CGRectMake(4.8, 4.8, 153.6, 310.4)));
    EXPECT_TRUE(isRectangle(frameOf(view("_groupView1")), CGRectMake(163.2, 4.8, 153.6, 310.4)));
    EXPECT_TRUE(isRectangle(frameOf(view("_groupView2")), CGRectMake(321.6, 4.8, 153.6, 310.4)));
    for (const char* title : { "_groupLabel0", "_groupLabel1", "_groupLabel2" })
        EXPECT_TRUE(isRectangle(frameOf(view(title)), CGRectMake(0, 0, 153.6, 25)));
    const double rows[] = { 34.5024, 103.4768, 172.4512, 241.4256 };
    for (const int group : { 0, 1, 2 }) {
        const std::vector<std::uint8_t> slots = testing::slotsOfGroup(group);
        ASSERT_GE(slots.size(), std::size(rows));
        for (std::size_t cell = 0; cell < std::size(rows); ++cell)
            EXPECT_TRUE(isRectangle(frameOf(sliderView(slots[cell])), CGRectMake(7.7224, rows[cell], 138.1552, 54.472)))
                << int(slots[cell]);
    }
}

TEST_F(Layout, AnUnknownOrientationLaysOutSidewaysInARootThatIsNotTurned)
{
    show(panel);
    turnTo(0);
    EXPECT_EQ(view("_rootView").transform, sim::Transform {});
    // 480 × 320 in the middle of 375 × 667, shrunk by an eighth: 420 × 280 about (187.5, 333.5).
    EXPECT_TRUE(isRectangle(frameOf(view("_containerView")), CGRectMake(-22.5, 193.5, 420, 280)));
    EXPECT_TRUE(isRectangle(frameOf(sliderView(11)), firstTurned));
}

TEST_F(Layout, ThePanelIsShrunkAboutItsCentre)
{
    show(panel);
    EXPECT_TRUE(isRectangle(frameOf(view("_containerView")), CGRectMake(47.5, 123.5, 280, 420)));
    EXPECT_TRUE(isNear(view("_containerView").bounds.width, 320));
    store("scale", 0.5);
    reloadSettings();
    layOut();
    EXPECT_TRUE(isRectangle(frameOf(view("_containerView")), CGRectMake(107.5, 213.5, 160, 240)))
        << "the next layout takes the new scale";
}

TEST_F(Layout, LayingOutAgainMovesNothing)
{
    show(panel);
    const CGRect container = frameOf(view("_containerView"));
    const CGRect slider = frameOf(sliderView(5));
    for (int i = 0; i < 50; ++i)
        layOut();
    EXPECT_TRUE(isRectangle(frameOf(view("_containerView")), container));
    EXPECT_TRUE(isRectangle(frameOf(sliderView(5)), slider));
}

TEST_F(Layout, EverySliderIsLaidOutWithItsOwnLevel)
{
    show(panel);
    for (SlotNumber slot = 0; slot < volumeSlotCount; ++slot)
        slider(slot).setVolume((slot + 1) / 16.0);
    forgetEvents();
    turnTo(3);
    for (SlotNumber slot = 0; slot < volumeSlotCount; ++slot) {
        EXPECT_TRUE(isNear(part(slot, "_volumeView").frame().width, 138.1552 * (slot + 1) / 16.0)) << int(slot);
        EXPECT_EQ(slider(slot).volume(), (slot + 1) / 16.0);
    }
    EXPECT_EQ(countOf("write"), 0u) << "a layout saves nothing";
}

TEST_F(Layout, AnEnlargedSliderIsAtRestBeforeItGetsItsFrame)
{
    show(panel);
    controller().autoAnimateView(slider(3));
    EXPECT_EQ(swelling(3), 1.05);
    layOut();
    EXPECT_EQ(swelling(3), 1.0);
    EXPECT_TRUE(isRectangle(frameOf(sliderView(3)), first));
    EXPECT_EQ(durations(), (std::vector<double> { 0.3, 0.15 })) << "the turn, then the sliders' rest";
}

TEST_F(Layout, LayingOutMakesAndRemovesNoView)
{
    for (const int style : { panel, banner }) {
        show(style);
        const std::size_t before = views();
        for (const std::int64_t orientation : { 3, 2, 4, 1, 0 }) {
            turnTo(orientation);
            EXPECT_EQ(views(), before) << "style " << style;
        }
        dismiss();
    }
}

// The banner.

TEST_F(Layout, TurnedUnderAStatusBarTheBannerIsCentredBelowIt)
{
    show(banner);
    device.screen->statusBarCenter = { 123.5, 10 };
    turnTo(3);
    EXPECT_EQ(view("_containerView").center.x, 123.5);
    turnTo(0);
    EXPECT_EQ(view("_containerView").center.x, 123.5) << "an unknown orientation counts as turned";
}

TEST_F(Layout, TurnedWithoutAStatusBarTheBannerIsCentredInTheScreen)
{
    show(banner);
    device.screen->statusBarCenter = { 123.5, 10 };
    device.screen->statusBarHidden = true;
    turnTo(4);
    EXPECT_EQ(view("_containerView").center.x, 333.5) << "the root view's y runs across the screen";
}

TEST_F(Layout, UprightTheStatusBarDoesNotMatter)
{
    show(banner);
    device.screen->statusBarCenter = { 123.5, 10 };
    for (const std::int64_t orientation : { 2, 1 }) {
        turnTo(orientation);
        EXPECT_EQ(view("_containerView").center.x, 187.5);
    }
}

TEST_F(Layout, WithoutAHomeScreenApplicationTheStatusBarCountsAsShown)
{
    show(banner);
    device.screen->statusBarHidden = true;
    device.screen->statusBarCenter = { 123.5, 10 };
    device.classes->setPresent("SpringBoard", false);
    turnTo(3);
    EXPECT_EQ(view("_containerView").center.x, 123.5);
}

TEST_F(Layout, TheBannersPartsAndItsScaleStay)
{
    show(banner);
    const CGRect group = frameOf(view("_groupView2"));
    const CGRect slider = frameOf(sliderView(6));
    store("scale", 0.5);
    reloadSettings();
    turnTo(3);
    EXPECT_TRUE(isRectangle(frameOf(view("_groupView2")), group));
    EXPECT_TRUE(isRectangle(frameOf(sliderView(6)), slider));
    EXPECT_TRUE(isNear(view("_containerView").transform.a, 0.875)) << "a new scale waits for the next build";
}

TEST_F(Layout, TheBannersSlidersAreBroughtToRestToo)
{
    show(banner);
    controller().autoAnimateView(slider(3));
    layOut();
    EXPECT_EQ(swelling(3), 1.0);
    EXPECT_EQ(durations(), (std::vector<double> { 0.3, 0.15 }));
}

TEST_F(Layout, AMixerBuiltOnItsSideIsLaidOutOnItsSide)
{
    device.screen->orientation = 3;
    show(panel);
    EXPECT_TRUE(isRectangle(frameOf(sliderView(11)), firstTurned));
    EXPECT_TRUE(isNear(view("_containerView").center.x, 333.5) && isNear(view("_containerView").center.y, 187.5));
}

} // namespace
} // namespace panotra
