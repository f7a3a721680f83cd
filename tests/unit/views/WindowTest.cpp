/// The overlay's window: which touches it takes, as fingers on the simulated screen find out.
#include "tests/support/MixerTest.h"

namespace panotra {
namespace {

struct Window : testing::MixerTest {
    Window() { storeLevels(0.5); }

    void launchWith(int style, bool dismissOnTouch)
    {
        store("dismissOnTouch", dismissOnTouch);
        show(style);
        pass(1);
        forgetEvents();
    }
    /// The name of the view that a finger hits there; null for none.
    sim::Json hitAt(double x, double y)
    {
        device.touches->down(x, y);
        device.touches->up();
        pass();
        return eventsOf("hit").back()["view"];
    }
    sim::Point middleOf(sim::View& inner) const
    {
        sim::Point point { inner.bounds.width / 2, inner.bounds.height / 2 };
        for (const sim::View* each = &inner; each != nullptr; each = each->superview) {
            const sim::Point fromMiddle { point.x - each->bounds.width / 2, point.y - each->bounds.height / 2 };
            const sim::Point turned = sim::apply(each->transform, fromMiddle);
            point = { turned.x + each->center.x, turned.y + each->center.y };
        }
        return point;
    }
};

// On a screen of 375 × 667 the panel, scaled, covers (47.5, 123.5) to (327.5, 543.5).

TEST_F(Window, OutsideThePanelATouchIsSwallowed)
{
    launchWith(panel, false);
    EXPECT_EQ(hitAt(20, 20), "_rootView");
    pass(2);
    EXPECT_EQ(countOf("animate"), 0u) << "nothing is dismissed";
    EXPECT_FALSE(processValues.killedByTouch);
    EXPECT_TRUE(controller().window());
}

TEST_F(Window, OutsideThePanelATouchDismissesTheMixerIfItMay)
{
    launchWith(panel, true);
    EXPECT_EQ(hitAt(20, 20), "_rootView") << "the app below gets nothing";
    EXPECT_TRUE(processValues.killedByTouch);
    EXPECT_EQ(durations(), (std::vector<double> { 0.4 }));
    pass(0.7999);
    EXPECT_TRUE(controller().window()) << "the touch ends on views that are still there";
    pass(0.0002);
    EXPECT_FALSE(controller().window());
    EXPECT_FALSE(processValues.killedByTouch);
}

TEST_F(Window, OutsideTheBannerATouchPassesToTheAppBelow)
{
    launchWith(banner, false);
    EXPECT_EQ(hitAt(187, 500), nullptr);
    EXPECT_EQ(countOf("animate"), 0u);
    EXPECT_TRUE(controller().window());
}

TEST_F(Window, OutsideTheBannerATouchDismissesTheMixerIfItMay)
{
    launchWith(banner, true);
    EXPECT_EQ(hitAt(187, 500), "_rootView");
    EXPECT_TRUE(processValues.killedByTouch);
    EXPECT_EQ(durations(), (std::vector<double> { 0.4 }));
}

TEST_F(Window, EverySliderOfBothStylesIsHitInItsMiddleWhateverMayBeDismissed)
{
    for (const int style : { panel, banner }) {
        for (const bool dismissOnTouch : { false, true }) {
            launchWith(style, dismissOnTouch);
            for (SlotNumber slot = 0; slot < volumeSlotCount; ++slot) {
                const sim::Point middle = middleOf(sliderView(slot));
                device.touches->down(middle.x, middle.y);
                device.touches->move(middle.x + 10.001, middle.y);
                EXPECT_TRUE(processValues.isPanning) << "slot " << int(slot) << " in style " << style;
                device.touches->up();
                EXPECT_FALSE(processValues.isPanning);
            }
            EXPECT_FALSE(processValues.killedByTouch);
            EXPECT_TRUE(controller().window());
            dismiss();
        }
    }
}

TEST_F(Window, TheSlidersAreWhereTheyAreSeenInEveryOrientation)
{
    for (const std::int64_t orientation : { 1, 2, 3, 4, 0 }) {
        device.screen->orientation = orientation;
        launchWith(panel, false);
        const sim::Point middle = middleOf(sliderView(8));
        device.touches->down(middle.x, middle.y);
        device.touches->move(middle.x, middle.y + 11);
        EXPECT_TRUE(processValues.isPanning) << orientation;
        device.touches->up();
        dismiss();
    }
}

TEST_F(Window, AFingerThatTurnsWithTheScreenMovesALevelAlongTheSlider)
{
    device.screen->orientation = 3; // turned clockwise: the slider's left end is at the top of the screen
    launchWith(panel, false);
    const sim::Point middle = middleOf(sliderView(9));
    device.touches->down(middle.x, middle.y);
    device.touches->move(middle.x, middle.y + 20);
    const double lower = slider(9).volume();
    device.touches->move(middle.x, middle.y + 30);
    const double higher = slider(9).volume();
    EXPECT_GT(higher, lower);
    device.touches->move(middle.x + 500, middle.y + 30);
    EXPECT_NEAR(slider(9).volume(), higher, 1e-9) << "across the slider nothing changes";
    device.touches->up();
}

TEST_F(Window, InsideTheBannerTheGroupsLetTouchesThrough)
{
    // Groups are 134.4 points high in their own measure, the banner 960 / 7 · 0.875 = 120 in its superview's: what
    // is higher than the banner counts as outside of it.
    launchWith(banner, false);
    const sim::View& group = view("_groupView0");
    EXPECT_GT(group.frame().height, view("_containerView").frame().height);
    sim::View& container = view("_containerView");
    EXPECT_EQ(hitAt(container.center.x, container.center.y - 55), nullptr) << "on the title of the middle group";
}

TEST_F(Window, APointOutsideTheWindowHitsNothing)
{
    launchWith(panel, true);
    EXPECT_EQ(hitAt(-1, 20), nullptr);
    EXPECT_FALSE(processValues.killedByTouch);
}

} // namespace
} // namespace panotra
