/// From the pointer on the desktop to the finger on the phone.
#include "simulator/desktop/OverlayPointer.h"

#include "simulator/device/View.h"
#include "tests/support/MixerTest.h"

namespace panotra::testing {
namespace {

constexpr render::PixelRect window { 100, 100, 50, 20 };
constexpr std::uint32_t left = 1;
constexpr std::uint32_t right = 4;
constexpr SlotNumber ringtone = 7;

TEST(PressesOutside, APressBesideTheWindowIsOne)
{
    sim::PressesOutside outside;
    EXPECT_FALSE(outside.see(0, 10, 10, window));
    EXPECT_TRUE(outside.see(left, 10, 10, window));
    EXPECT_FALSE(outside.see(left, 11, 10, window)) << "it is still the same press";
    EXPECT_TRUE(outside.see(left | right, 11, 10, window));
    EXPECT_FALSE(outside.see(0, 11, 10, window));
    EXPECT_TRUE(outside.see(left, 150, 110, window)) << "the first place beyond the edge";
}

TEST(PressesOutside, APressInTheWindowIsNone)
{
    sim::PressesOutside outside;
    outside.see(0, 0, 0, window);
    EXPECT_FALSE(outside.see(left, 100, 100, window));
    EXPECT_FALSE(outside.see(left, 10, 10, window)) << "a drag that has left it";
}

TEST(PressesOutside, WhatWasHeldBeforeTheOverlayCameIsNone)
{
    sim::PressesOutside outside;
    EXPECT_FALSE(outside.see(left, 10, 10, window));
    EXPECT_FALSE(outside.see(left, 10, 10, window));
    EXPECT_FALSE(outside.see(0, 10, 10, window));
    EXPECT_TRUE(outside.see(left, 10, 10, window));
}

class OverlayPointerTest : public MixerTest {
protected:
    OverlayPointerTest() { useScreen(480, 720); }

    void showAtRest(int style)
    {
        show(style);
        pass(1);
    }
    sim::Point placeOn(SlotNumber slot, double part) const
    {
        const sim::View& found = view("_volumeView" + std::to_string(slot));
        sim::Point point { found.bounds.width * part, found.bounds.height / 2 };
        for (const sim::View* each = &found; each != nullptr; each = each->superview) {
            const sim::Rect frame = each->frame();
            point = { frame.x + point.x * frame.width / each->bounds.width,
                frame.y + point.y * frame.height / each->bounds.height };
        }
        return point;
    }

    sim::OverlayPointer pointer { *device.touches };
};

TEST_F(OverlayPointerTest, ADragMovesTheSlider)
{
    showAtRest(panel);
    pointer.press(placeOn(ringtone, 0.75));
    pointer.move(placeOn(ringtone, 0.6));
    EXPECT_EQ(swelling(ringtone), 1) << "a move is felt once a frame";
    pointer.settle();
    pass();
    EXPECT_GT(swelling(ringtone), 1);
    pointer.move(placeOn(ringtone, 0.9));
    pointer.move(placeOn(ringtone, 0.25));
    pointer.settle();
    pass(1);
    EXPECT_NEAR(slider(ringtone).volume(), 0.25, 0.05);
    pointer.release();
    pass(3);
    EXPECT_EQ(swelling(ringtone), 1);
    EXPECT_FALSE(pointer.isHeld());
}

TEST_F(OverlayPointerTest, TheLastMoveCountsWhenItIsLetGo)
{
    showAtRest(panel);
    pointer.press(placeOn(ringtone, 0.9));
    pointer.move(placeOn(ringtone, 0.6));
    pointer.settle();
    pointer.move(placeOn(ringtone, 0.5));
    pointer.release();
    pass(1);
    EXPECT_NEAR(slider(ringtone).volume(), 0.5, 0.05);
}

TEST_F(OverlayPointerTest, AMoveWithoutAPressDoesNothing)
{
    showAtRest(panel);
    const CGFloat before = slider(ringtone).volume();
    pointer.move(placeOn(ringtone, 0.1));
    pointer.release();
    pass(1);
    EXPECT_EQ(slider(ringtone).volume(), before);
    EXPECT_EQ(countOf("hit"), 0U);
}

TEST_F(OverlayPointerTest, APressOutsideDismissesWhereTheSettingSaysSo)
{
    for (const int style : { panel, banner }) {
        store("dismissOnTouch", false);
        showAtRest(style);
        pointer.pressOutside();
        pass(2);
        EXPECT_NE(device.home->window(), nullptr) << style;
        store("dismissOnTouch", true);
        reloadSettings();
        pointer.pressOutside();
        pass(2);
        EXPECT_EQ(device.home->window(), nullptr) << style;
    }
}

TEST_F(OverlayPointerTest, WhatIsHeldIsLetGoWithTheOverlay)
{
    showAtRest(panel);
    {
        sim::OverlayPointer another(*device.touches);
        another.press(placeOn(ringtone, 0.75));
        another.move(placeOn(ringtone, 0.5));
        another.settle();
        pass();
        EXPECT_GT(swelling(ringtone), 1);
    }
    pass(3);
    EXPECT_EQ(swelling(ringtone), 1);
}

} // namespace
} // namespace panotra::testing
