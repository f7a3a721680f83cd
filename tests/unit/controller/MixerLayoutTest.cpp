/// The mixer's geometry against numbers that were worked by hand; the working stands beside them.
#include "controller/MixerLayout.h"

#include "tests/support/Rectangles.h"

namespace panotra {
namespace {

using testing::isNear;
using testing::isRectangle;

struct MeasuredScreen {
    CGSize screen;
    CGSize reference;
    CGRect uprightPanel; ///< in a root view as large as the screen
    CGRect turnedPanel; ///< in a root view that is turned a quarter
    CGRect banner;
};

// Panel: half the screen less half the reference size, 375 / 2 - 320 / 2 = 27.5 and 667 / 2 - 480 / 2 = 93.5.
// Turned, the root view is as wide as the screen is high, and the reference size lies on its side.
// Banner: (375 - 320) / 2 = 27.5 from the left, 40 from the top, 480 / 3.5 = 960 / 7 high.
const MeasuredScreen measuredScreens[] = {
    { { 320, 480 }, { 300, 440 }, CGRectMake(10, 20, 300, 440), CGRectMake(20, 10, 440, 300),
        CGRectMake(10, 40, 300, 880.0 / 7) },
    { { 320, 568 }, { 300, 480 }, CGRectMake(10, 44, 300, 480), CGRectMake(44, 10, 480, 300),
        CGRectMake(10, 40, 300, 960.0 / 7) },
    { { 375, 667 }, { 320, 480 }, CGRectMake(27.5, 93.5, 320, 480), CGRectMake(93.5, 27.5, 480, 320),
        CGRectMake(27.5, 40, 320, 960.0 / 7) },
    { { 414, 736 }, { 320, 480 }, CGRectMake(47, 128, 320, 480), CGRectMake(128, 47, 480, 320),
        CGRectMake(47, 40, 320, 960.0 / 7) },
    { { 768, 1024 }, { 320, 480 }, CGRectMake(224, 272, 320, 480), CGRectMake(272, 224, 480, 320),
        CGRectMake(224, 40, 320, 960.0 / 7) },
};

/// The place and size of a layout's parts, as they were worked by hand.
struct Worked {
    std::array<CGRect, groupCount> groups;
    CGRect title;
    std::array<CGRect, cellsPerGroup> cells;
};

void expectLayout(const MixerLayout& found, const Worked& expected)
{
    for (std::size_t group = 0; group < groupCount; ++group)
        EXPECT_TRUE(isRectangle(found.groups[group], expected.groups[group])) << "group " << group;
    EXPECT_TRUE(isRectangle(found.title, expected.title)) << "title";
    for (std::size_t cell = 0; cell < cellsPerGroup; ++cell)
        EXPECT_TRUE(isRectangle(found.cells[cell], expected.cells[cell])) << "cell " << cell;
}

TEST(MixerLayout, TheReferenceSizeGivesWayOnAScreenJustAsWideOrHigh)
{
    for (const MeasuredScreen& each : measuredScreens)
        EXPECT_EQ(referenceSizeForScreen(each.screen), each.reference);
    EXPECT_EQ(referenceSizeForScreen({ 480, 320 }), (CGSize { 320, 480 })) << "width with width, height with height";
    EXPECT_EQ(referenceSizeForScreen({ 320.001, 479.999 }), (CGSize { 320, 480 })) << "exactly as wide";
}

TEST(MixerLayout, OrientationsOneAndTwoArePortraitAndEverythingElseIsLandscape)
{
    EXPECT_EQ(aspectOf(1), Aspect::Portrait);
    EXPECT_EQ(aspectOf(2), Aspect::Portrait);
    for (const std::int64_t orientation : { 0, 3, 4, 5, -1 })
        EXPECT_EQ(aspectOf(orientation), Aspect::Landscape) << orientation;
}

TEST(MixerLayout, TheRootTurnsHalfAroundForTwoAndAQuarterForThreeAndFour)
{
    struct Row {
        std::int64_t orientation;
        double cosine, sine;
    };
    for (const Row& row : { Row { 2, -1, 0 }, Row { 3, 0, 1 }, Row { 4, 0, -1 } }) {
        const CGAffineTransform found = rootTransform(row.orientation);
        EXPECT_TRUE(isNear(found.a, row.cosine) && isNear(found.d, row.cosine)) << row.orientation;
        EXPECT_TRUE(isNear(found.b, row.sine) && isNear(found.c, -row.sine)) << row.orientation;
        EXPECT_EQ(found.tx, 0);
        EXPECT_EQ(found.ty, 0);
    }
}

TEST(MixerLayout, TheRootIsNotTurnedForOneNorForAnUnknownOrientation)
{
    for (const std::int64_t orientation : { 1, 0, 5, -1 })
        EXPECT_EQ(rootTransform(orientation), CGAffineTransformIdentity) << orientation;
}

TEST(MixerLayout, OnlyOppositeOrientationsAreHalfATurnApart)
{
    const bool expected[5][5] = {
        // to    0      1      2      3      4         from
        { false, false, false, false, false }, // 0
        { false, false, true, false, false }, // 1
        { false, true, false, false, false }, // 2
        { false, false, false, false, true }, // 3
        { false, false, false, true, false }, // 4
    };
    for (std::int64_t from = 0; from < 5; ++from) {
        for (std::int64_t to = 0; to < 5; ++to)
            EXPECT_EQ(isHalfTurn(from, to), expected[from][to]) << from << " to " << to;
    }
    EXPECT_FALSE(isHalfTurn(-1, 1)) << "nothing came before the first layout";
}

// The frames of the two containers on every screen.

TEST(MixerLayout, ThePanelStandsInTheMiddleOfEveryScreenUpright)
{
    for (const MeasuredScreen& each : measuredScreens)
        EXPECT_TRUE(isRectangle(panelFrame(each.screen, each.reference, Aspect::Portrait), each.uprightPanel))
            << each.screen.width;
}

TEST(MixerLayout, ThePanelStandsInTheMiddleOfEveryScreenTurned)
{
    for (const MeasuredScreen& each : measuredScreens) {
        const CGSize turned { each.screen.height, each.screen.width };
        EXPECT_TRUE(isRectangle(panelFrame(turned, each.reference, Aspect::Landscape), each.turnedPanel))
            << each.screen.width;
    }
}

TEST(MixerLayout, TheBannerStandsFortyPointsBelowTheTopOfEveryScreen)
{
    for (const MeasuredScreen& each : measuredScreens)
        EXPECT_TRUE(isRectangle(bannerFrame(each.screen.width, each.reference), each.banner)) << each.screen.width;
}

TEST(MixerLayout, CornerRadiiGrowWithTheArea)
{
    EXPECT_TRUE(isNear(panelCornerRadius({ 320, 480 }), 26.88)); // 153,600 · 0.000175
    EXPECT_TRUE(isNear(panelCornerRadius({ 300, 440 }), 23.1)); // 132,000 · 0.000175
    EXPECT_TRUE(isNear(bannerCornerRadius({ 320, 140 }), 19.04)); // 44,800 · 0.000425
}

// The panel upright: three groups on top of each other, each a grid of two by two.

TEST(MixerLayout, ThePanelOfAPhoneUpright)
{
    // Margins 320 / 100 = 3.2 and 480 / 100 = 4.8. Groups 320 - 6.4 = 313.6 wide, (480 - 19.2) / 3 = 153.6 high.
    // Gaps 1 + 313.6 / 40 = 8.84 and 2.5 + 153.6 / 20 = 10.18.
    // Sliders (313.6 - 26.52) / 2 = 143.54 wide, (153.6 - 30.54 - 20) / 2 = 51.53 high.
    // Right column 17.68 + 143.54 = 161.22, upper row 10.18 + 20, lower row 20.36 + 20 + 51.53 = 91.89.
    expectLayout(panelLayout({ 320, 480 }, Aspect::Portrait),
        { { CGRectMake(3.2, 4.8, 313.6, 153.6), CGRectMake(3.2, 163.2, 313.6, 153.6),
              CGRectMake(3.2, 321.6, 313.6, 153.6) },
            CGRectMake(0, 0, 313.6, 25),
            { CGRectMake(8.84, 30.18, 143.54, 51.53), CGRectMake(161.22, 30.18, 143.54, 51.53),
                CGRectMake(8.84, 91.89, 143.54, 51.53), CGRectMake(161.22, 91.89, 143.54, 51.53) } });
}

TEST(MixerLayout, ThePanelOfANarrowPhoneUpright)
{
    // Margins 3 and 4.8. Groups 294 wide, 153.6 high. Gaps 1 + 294 / 40 = 8.35 and 10.18.
    // Sliders (294 - 25.05) / 2 = 134.475 wide, 51.53 high; right column 16.7 + 134.475 = 151.175.
    expectLayout(panelLayout({ 300, 480 }, Aspect::Portrait),
        { { CGRectMake(3, 4.8, 294, 153.6), CGRectMake(3, 163.2, 294, 153.6), CGRectMake(3, 321.6, 294, 153.6) },
            CGRectMake(0, 0, 294, 25),
            { CGRectMake(8.35, 30.18, 134.475, 51.53), CGRectMake(151.175, 30.18, 134.475, 51.53),
                CGRectMake(8.35, 91.89, 134.475, 51.53), CGRectMake(151.175, 91.89, 134.475, 51.53) } });
}

TEST(MixerLayout, ThePanelOfTheSmallestPhoneUpright)
{
    // Margins 3 and 4.4. Groups 294 wide, (440 - 17.6) / 3 = 140.8 high. Gaps 8.35 and 2.5 + 140.8 / 20 = 9.54.
    // Sliders 134.475 wide, (140.8 - 28.62 - 20) / 2 = 46.09 high; lower row 19.08 + 20 + 46.09 = 85.17.
    expectLayout(panelLayout({ 300, 440 }, Aspect::Portrait),
        { { CGRectMake(3, 4.4, 294, 140.8), CGRectMake(3, 149.6, 294, 140.8), CGRectMake(3, 294.8, 294, 140.8) },
            CGRectMake(0, 0, 294, 25),
            { CGRectMake(8.35, 29.54, 134.475, 46.09), CGRectMake(151.175, 29.54, 134.475, 46.09),
                CGRectMake(8.35, 85.17, 134.475, 46.09), CGRectMake(151.175, 85.17, 134.475, 46.09) } });
}

TEST(MixerLayout, SlidersOfAGroupThatIsTooLowGetANegativeHeight)
{
    // Groups (40 - 1.6) / 3 = 12.8 high, gap 2.5 + 0.64 = 3.14, sliders (12.8 - 9.42 - 20) / 2 = -8.31.
    EXPECT_TRUE(isNear(panelLayout({ 320, 40 }, Aspect::Portrait).cells[0].size.height, -8.31));
}

// The panel turned: three groups side by side, each a column of four.

TEST(MixerLayout, ThePanelOfAPhoneTurned)
{
    // Margins 480 / 100 = 4.8 and 320 · 0.015 = 4.8. Groups (480 - 19.2) / 3 = 153.6 wide, 320 - 9.6 = 310.4 high.
    // Gaps 2.5 + 153.6 · 0.034 = 7.7224 and 1 + 310.4 · 0.0435 = 14.5024.
    // Sliders 153.6 - 15.4448 = 138.1552 wide, (310.4 - 72.512 - 20) / 4 = 54.472 high.
    // Rows from 34.5024 on, each 54.472 + 14.5024 = 68.9744 below the one before.
    expectLayout(panelLayout({ 480, 320 }, Aspect::Landscape),
        { { CGRectMake(4.8, 4.8, 153.6, 310.4), CGRectMake(163.2, 4.8, 153.6, 310.4),
              CGRectMake(321.6, 4.8, 153.6, 310.4) },
            CGRectMake(0, 0, 153.6, 25),
            { CGRectMake(7.7224, 34.5024, 138.1552, 54.472), CGRectMake(7.7224, 103.4768, 138.1552, 54.472),
                CGRectMake(7.7224, 172.4512, 138.1552, 54.472), CGRectMake(7.7224, 241.4256, 138.1552, 54.472) } });
}

TEST(MixerLayout, ThePanelOfANarrowPhoneTurned)
{
    // Margins 4.8 and 300 · 0.015 = 4.5. Groups 153.6 wide, 291 high. Gaps 7.7224 and 1 + 291 · 0.0435 = 13.6585.
    // Sliders 138.1552 wide, (291 - 68.2925 - 20) / 4 = 50.676875 high; rows 64.335375 apart.
    expectLayout(panelLayout({ 480, 300 }, Aspect::Landscape),
        { { CGRectMake(4.8, 4.5, 153.6, 291), CGRectMake(163.2, 4.5, 153.6, 291), CGRectMake(321.6, 4.5, 153.6, 291) },
            CGRectMake(0, 0, 153.6, 25),
            { CGRectMake(7.7224, 33.6585, 138.1552, 50.676875), CGRectMake(7.7224, 97.993875, 138.1552, 50.676875),
                CGRectMake(7.7224, 162.32925, 138.1552, 50.676875),
                CGRectMake(7.7224, 226.664625, 138.1552, 50.676875) } });
}

TEST(MixerLayout, ThePanelOfTheSmallestPhoneTurned)
{
    // Margins 4.4 and 4.5. Groups (440 - 17.6) / 3 = 140.8 wide, 291 high. Gaps 2.5 + 140.8 · 0.034 = 7.2872 and
    // 13.6585. Sliders 140.8 - 14.5744 = 126.2256 wide, 50.676875 high.
    expectLayout(panelLayout({ 440, 300 }, Aspect::Landscape),
        { { CGRectMake(4.4, 4.5, 140.8, 291), CGRectMake(149.6, 4.5, 140.8, 291), CGRectMake(294.8, 4.5, 140.8, 291) },
            CGRectMake(0, 0, 140.8, 25),
            { CGRectMake(7.2872, 33.6585, 126.2256, 50.676875), CGRectMake(7.2872, 97.993875, 126.2256, 50.676875),
                CGRectMake(7.2872, 162.32925, 126.2256, 50.676875),
                CGRectMake(7.2872, 226.664625, 126.2256, 50.676875) } });
}

// The banner: three groups side by side, each a grid of two by two.

TEST(MixerLayout, TheBannerOfAPhone)
{
    // Height 960 / 7. Margins 3.2 and 9.6 / 7. Groups (320 - 12.8) / 3 = 102.4 wide, 960 / 7 · 0.98 = 134.4 high.
    // Gaps 5.12 and 6.72. Sliders (102.4 - 15.36) / 2 = 43.52 wide and (134.4 - 20 - 20.16) / 2 = 47.12 high: never
    // narrower than high, so 47.12. Right column 6.4 + 47.12 = 53.52, lower row 13.44 + 20 + 47.12 = 80.56.
    const double top = 9.6 / 7;
    expectLayout(bannerLayout({ 320, 960.0 / 7 }),
        { { CGRectMake(3.2, top, 102.4, 134.4), CGRectMake(108.8, top, 102.4, 134.4),
              CGRectMake(214.4, top, 102.4, 134.4) },
            CGRectMake(2.5, 2.5, 97.4, 17.5),
            { CGRectMake(3.2, 26.72, 47.12, 47.12), CGRectMake(53.52, 26.72, 47.12, 47.12),
                CGRectMake(3.2, 80.56, 47.12, 47.12), CGRectMake(53.52, 80.56, 47.12, 47.12) } });
}

TEST(MixerLayout, TheBannerOfANarrowPhone)
{
    // Margin 3. Groups (300 - 12) / 3 = 96 wide, 134.4 high. (96 - 14.4) / 2 = 40.8 is less than 47.12.
    const double top = 9.6 / 7;
    expectLayout(bannerLayout({ 300, 960.0 / 7 }),
        { { CGRectMake(3, top, 96, 134.4), CGRectMake(102, top, 96, 134.4), CGRectMake(201, top, 96, 134.4) },
            CGRectMake(2.5, 2.5, 91, 17.5),
            { CGRectMake(3, 26.72, 47.12, 47.12), CGRectMake(53.12, 26.72, 47.12, 47.12),
                CGRectMake(3, 80.56, 47.12, 47.12), CGRectMake(53.12, 80.56, 47.12, 47.12) } });
}

TEST(MixerLayout, TheBannerOfTheSmallestPhone)
{
    // Height 880 / 7. Groups 96 wide, 880 / 7 · 0.98 = 123.2 high. Gap 6.16; (123.2 - 20 - 18.48) / 2 = 42.36 high,
    // which is more than 40.8. Right column 6 + 42.36, lower row 12.32 + 20 + 42.36 = 74.68.
    const double top = 8.8 / 7;
    expectLayout(bannerLayout({ 300, 880.0 / 7 }),
        { { CGRectMake(3, top, 96, 123.2), CGRectMake(102, top, 96, 123.2), CGRectMake(201, top, 96, 123.2) },
            CGRectMake(2.5, 2.5, 91, 17.5),
            { CGRectMake(3, 26.16, 42.36, 42.36), CGRectMake(48.36, 26.16, 42.36, 42.36),
                CGRectMake(3, 74.68, 42.36, 42.36), CGRectMake(48.36, 74.68, 42.36, 42.36) } });
}

TEST(MixerLayout, SlidersOfAWideBannerStayWiderThanHigh)
{
    // Margins 6 and 1. Groups (600 - 24) / 3 = 192 wide, 98 high. Gaps 9.6 and 4.9. Sliders (192 - 28.8) / 2 = 81.6
    // wide, (98 - 20 - 14.7) / 2 = 31.65 high. The columns stand at the banner's margin: 6 and 12 + 81.6.
    const auto cells = bannerLayout({ 600, 100 }).cells;
    EXPECT_TRUE(isRectangle(cells[0], CGRectMake(6, 24.9, 81.6, 31.65)));
    EXPECT_TRUE(isRectangle(cells[1], CGRectMake(93.6, 24.9, 81.6, 31.65)));
    EXPECT_TRUE(isRectangle(cells[2], CGRectMake(6, 61.45, 81.6, 31.65)));
    EXPECT_TRUE(isRectangle(cells[3], CGRectMake(93.6, 61.45, 81.6, 31.65)));
}

} // namespace
} // namespace panotra
