/// Which touches the overlay takes, row by row of the decision.
#include "tests/support/KnownFacts.h"
#include "tests/support/MixerTest.h"

namespace panotra {
namespace {

struct Touch : testing::MixerTest {
    void launchWith(int style, bool dismissOnTouch)
    {
        store("dismissOnTouch", dismissOnTouch);
        show(style);
        pass(1);
        forgetEvents();
    }
    static UIView viewOfHeight(double height) { return UIView::initWithFrame(CGRectMake(0, 0, 10, height)); }
    static UIView answerTo(const UIView& touched) { return controller().returnViewFromTouchedView(touched); }
};

TEST_F(Touch, NothingTouchedIsNothingTaken)
{
    for (const int style : { panel, banner }) {
        for (const bool dismissOnTouch : { false, true }) {
            launchWith(style, dismissOnTouch);
            EXPECT_FALSE(answerTo(nullptr));
            EXPECT_FALSE(processValues.killedByTouch);
            dismiss();
        }
    }
}

TEST_F(Touch, TheRootDismissesInEveryStyleIfItMay)
{
    for (const int style : { panel, banner, 2 }) {
        launchWith(style, true);
        EXPECT_EQ(answerTo(controller().rootView()), controller().rootView()) << style;
        EXPECT_TRUE(processValues.killedByTouch);
        EXPECT_EQ(durations(), (std::vector<double> { 0.4 }));
        pass(1);
        EXPECT_FALSE(controller().window());
    }
}

TEST_F(Touch, TheRootThatMayNotDismissKeepsTheTouchBehindThePanelOnly)
{
    launchWith(panel, false);
    EXPECT_EQ(answerTo(controller().rootView()), controller().rootView());
    dismiss();
    launchWith(banner, false);
    EXPECT_FALSE(answerTo(controller().rootView()));
    dismiss();
    launchWith(2, false);
    EXPECT_EQ(answerTo(controller().rootView()), controller().rootView());
    EXPECT_FALSE(processValues.killedByTouch);
    EXPECT_EQ(countOf("animate"), 0u);
}

TEST_F(Touch, EveryTouchThatReachesTheRootDismissesAnew)
{
    launchWith(panel, true);
    answerTo(controller().rootView());
    answerTo(controller().rootView());
    EXPECT_EQ(durations(), (std::vector<double> { 0.4, 0.4 }));
    EXPECT_EQ(countOf("write"), 2 * testing::knownSlotCount);
}

TEST_F(Touch, ViewsNoHigherThanTheBannerKeepTheirTouches)
{
    launchWith(banner, false);
    const double height = view("_containerView").frame().height;
    for (const double kept : { 0.0, 1.0, height }) {
        const UIView touched = viewOfHeight(kept);
        EXPECT_EQ(answerTo(touched), touched) << kept;
    }
    EXPECT_FALSE(answerTo(viewOfHeight(height + 1e-9)));
}

TEST_F(Touch, HeightsAreComparedAsEachSuperviewReportsThem)
{
    launchWith(banner, false);
    const UIView enlarged = viewOfHeight(100);
    enlarged.setTransform(CGAffineTransformMakeScale(2, 2));
    EXPECT_FALSE(answerTo(enlarged)) << "200 points in its superview's measure";
    EXPECT_EQ(answerTo(slider(0)), slider(0));
    EXPECT_FALSE(answerTo(retained<UIView>(&view("_groupView0")))) << "unscaled, it is higher than the scaled banner";
}

TEST_F(Touch, ThePanelKeepsTouchesOnViewsOfAnyHeight)
{
    launchWith(panel, true);
    const UIView high = viewOfHeight(10'000);
    EXPECT_EQ(answerTo(high), high);
    EXPECT_FALSE(processValues.killedByTouch);
}

TEST_F(Touch, ASliderDismissesNothing)
{
    for (const int style : { panel, banner }) {
        launchWith(style, true);
        for (SlotNumber slot = 0; slot < volumeSlotCount; ++slot)
            EXPECT_EQ(answerTo(slider(slot)), slider(slot));
        EXPECT_FALSE(processValues.killedByTouch);
        EXPECT_EQ(countOf("animate"), 0u);
        dismiss();
    }
}

TEST_F(Touch, WithoutAMixerTheBannerStyleLetsEverythingOfSomeHeightThrough)
{
    store("activeStyle", 1);
    store("dismissOnTouch", true);
    launch();
    EXPECT_FALSE(answerTo(viewOfHeight(0.5)));
    const UIView flat = viewOfHeight(0);
    EXPECT_EQ(answerTo(flat), flat);
    EXPECT_FALSE(processValues.killedByTouch);
}

TEST_F(Touch, WithoutAControllerNothingIsTaken)
{
    device.bundleIdentifier = "com.apple.mobilesafari";
    load();
    EXPECT_FALSE(answerTo(viewOfHeight(10)));
}

} // namespace
} // namespace panotra
