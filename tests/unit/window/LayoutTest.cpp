/// The geometry of the window.
#include "simulator/window/Layout.h"

#include <gtest/gtest.h>

#include <cmath>

namespace panotra::sim {
namespace {

constexpr double rounding = 1e-6;

void expectInside(const Area& inner, const Area& outer)
{
    EXPECT_GE(inner.x, outer.x - rounding);
    EXPECT_GE(inner.y, outer.y - rounding);
    EXPECT_LE(inner.right(), outer.right() + rounding);
    EXPECT_LE(inner.bottom(), outer.bottom() + rounding);
}

bool isWhole(double number)
{
    return std::abs(number - std::round(number)) < rounding;
}

TEST(LayoutTest, EverythingLiesInTheWindowAndNothingOverAnother)
{
    for (const PixelSize window : { PixelSize { 1200, 800 }, { 2400, 1600 }, { 1003, 777 }, { 3840, 900 },
             { 800, 1400 }, { 640, 480 }, { 300, 500 }, { 240, 320 } }) {
        for (const ScreenSize screen : { ScreenSize {}, { 320, 480, 2 }, { 375, 812, 3 }, { 768, 1024, 2 } }) {
            for (const int orientation : { 1, 2, 3, 4 }) {
                SCOPED_TRACE(std::to_string(window.width) + 'x' + std::to_string(window.height) + ' '
                    + std::to_string(screen.height) + " orientation " + std::to_string(orientation));
                const Layout layout = layOut(window, screen, orientation);
                EXPECT_NEAR(layout.sheet.width * layout.unit, window.width, rounding);
                expectInside(layout.phone.body(), layout.sheet);
                if (layout.controls) {
                    expectInside(*layout.controls, layout.sheet);
                    EXPECT_LE(layout.controls->right(), layout.phone.body().x);
                }
                if (layout.folded) {
                    expectInside(*layout.folded, layout.sheet);
                    EXPECT_GE(layout.folded->x, layout.phone.body().right());
                }
                if (layout.panel) {
                    expectInside(*layout.panel, layout.sheet);
                    EXPECT_GE(layout.panel->x, layout.phone.body().right());
                }
            }
        }
    }
}

TEST(LayoutTest, AWindowOfOnePixelHasALayout)
{
    const Layout layout = layOut({ 1, 1 }, {}, 1);
    EXPECT_GT(layout.unit, 0);
    EXPECT_GT(layout.phone.unitsPerPoint(), 0);
}

TEST(LayoutTest, TheScreenBeginsOnAWholePixelAndItsLongSideEndsOnOne)
{
    for (int width = 900; width < 960; ++width) {
        const Layout layout = layOut({ width, width - 111 }, {}, 1);
        const Area screen = layout.phone.screen();
        EXPECT_TRUE(isWhole(screen.x * layout.unit)) << width;
        EXPECT_TRUE(isWhole(screen.y * layout.unit)) << width;
        EXPECT_TRUE(isWhole(screen.bottom() * layout.unit)) << width;
    }
}

TEST(LayoutTest, WhatFindsNoRoomSharesAColumn)
{
    EXPECT_TRUE(layOut({ 1200, 800 }, {}, 1).panel);
    EXPECT_TRUE(layOut({ 2400, 1600 }, {}, 1).panel);
    for (const PixelSize narrow : { PixelSize { 480, 640 }, { 620, 800 }, { 340, 800 } }) {
        const Layout layout = layOut(narrow, {}, 1);
        EXPECT_FALSE(layout.panel);
        EXPECT_FALSE(layout.controls);
        EXPECT_TRUE(layout.folded) << "there is a way to all of it";
    }
    EXPECT_TRUE(layOut({ 900, 400 }, {}, 1).panel) << "a low window gains nothing from folding";
}

TEST(LayoutTest, TwiceThePixelsOfADisplayTwiceAsFineShowTheSame)
{
    const Layout once = layOut({ 1200, 800 }, {}, 1);
    const Layout twice = layOut({ 2400, 1600 }, {}, 1, Footer::None, 2);
    EXPECT_DOUBLE_EQ(twice.unit, 2 * once.unit);
    EXPECT_EQ(*twice.controls, *once.controls);
    EXPECT_EQ(*twice.panel, *once.panel);
    EXPECT_TRUE(layOut({ 1200, 1600 }, {}, 1, Footer::None, 2).folded) << "as wide as 600 plain pixels";
}

TEST(LayoutTest, ALargeWindowHasMoreRoomNotLargerLetters)
{
    const Layout layout = layOut({ 3840, 2160 }, {}, 1);
    EXPECT_LE(layout.unit, 1.5);
    EXPECT_GT(layout.panel->width, layOut({ 1200, 800 }, {}, 1).panel->width);
    EXPECT_GT(layout.phone.body().height, 0.9 * layout.sheet.height);
}

TEST(PhonePlaceTest, APointGoesToTheSheetAndBackInEveryOrientation)
{
    for (const int orientation : { 1, 2, 3, 4 }) {
        const PhonePlace place({ 375, 667, 2 }, orientation, { 500, 400 }, 0.8);
        const Area spot = place.onSheet({ 100, 200, 10, 20 });
        const Point back = place.onScreen({ spot.x + spot.width / 2, spot.y + spot.height / 2 });
        EXPECT_NEAR(back.x, 105, rounding) << orientation;
        EXPECT_NEAR(back.y, 210, rounding) << orientation;
    }
}

TEST(PhonePlaceTest, TheInterfaceStandsUprightForTheViewer)
{
    const auto topLeft = [](int orientation) {
        const PhonePlace place({ 375, 667, 2 }, orientation, { 0, 0 }, 1);
        const Area screen = place.screen();
        return place.onScreen({ screen.x, screen.y });
    };
    EXPECT_NEAR(topLeft(1).x, 0, rounding);
    EXPECT_NEAR(topLeft(1).y, 0, rounding);
    EXPECT_NEAR(topLeft(2).x, 375, rounding);
    EXPECT_NEAR(topLeft(2).y, 667, rounding);
    // Turned clockwise by a quarter for 3: its left top corner is the screen's right top one.
    EXPECT_NEAR(topLeft(3).x, 375, rounding);
    EXPECT_NEAR(topLeft(3).y, 0, rounding);
    EXPECT_NEAR(topLeft(4).x, 0, rounding);
    EXPECT_NEAR(topLeft(4).y, 667, rounding);
}

} // namespace
} // namespace panotra::sim
