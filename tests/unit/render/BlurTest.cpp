/// The blur by itself.
#include "simulator/render/Blur.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>

namespace panotra::render {
namespace {

constexpr Material plain { 0, 1, 1, { 0, 0, 0, 0 } };

Bitmap noise(int width, int height)
{
    Bitmap bitmap(width, height, PixelFormat::Opaque);
    std::uint32_t state = 1;
    for (int y = 0; y < height; ++y) {
        for (std::uint32_t& pixel : bitmap.row(y)) {
            state = state * 1664525 + 1013904223;
            pixel = state >> 8;
        }
    }
    bitmap.markChanged();
    return bitmap;
}

Bitmap filled(int width, int height, std::uint32_t color)
{
    Bitmap bitmap(width, height, PixelFormat::Opaque);
    for (int y = 0; y < height; ++y) {
        for (std::uint32_t& pixel : bitmap.row(y))
            pixel = color;
    }
    bitmap.markChanged();
    return bitmap;
}

std::uint32_t at(const Bitmap& bitmap, int x, int y)
{
    return bitmap.row(y)[static_cast<std::size_t>(x)] & 0xffffff;
}

int green(const Bitmap& bitmap, int x, int y)
{
    return static_cast<int>(at(bitmap, x, y) >> 8 & 0xff);
}

TEST(Blur, OfNothingLeavesThePixelsAsTheyAre)
{
    const Bitmap before = noise(37, 23);
    const Bitmap after = seenThrough(before, { 3, 5, 30, 11 }, 0, plain);
    for (int y = 0; y < 11; ++y) {
        for (int x = 0; x < 30; ++x)
            ASSERT_EQ(at(after, x, y), at(before, x + 3, y + 5)) << x << ", " << y;
    }
}

TEST(Blur, OfOneColourIsThatColour)
{
    for (const double sigma : { 0.3, 2.0, 7.0, 20.0, 60.0, 500.0, 1e9 }) {
        const Bitmap after = seenThrough(filled(61, 47, 0x3a7bd5), { 0, 0, 61, 47 }, sigma, plain);
        for (const auto& [x, y] : { std::pair { 0, 0 }, std::pair { 60, 46 }, std::pair { 30, 20 } }) {
            for (const int shift : { 0, 8, 16 }) {
                EXPECT_NEAR(static_cast<int>(at(after, x, y) >> shift & 0xff), 0x3a7bd5 >> shift & 0xff, 1)
                    << "sigma " << sigma;
            }
        }
    }
}

/// An edge between black and white becomes the integral of a Gaussian, at every size that the work is done in.
TEST(Blur, OfAnEdgeIsTheGaussiansIntegral)
{
    Bitmap edge = filled(400, 40, 0);
    for (int y = 0; y < 40; ++y) {
        for (std::size_t x = 200; x < 400; ++x)
            edge.row(y)[x] = 0xffffff;
    }
    edge.markChanged();
    for (const double sigma : { 1.0, 3.0, 6.0, 12.0, 25.0, 40.0 }) {
        const Bitmap after = seenThrough(edge, edge.extent(), sigma, plain);
        for (int x = 20; x < 380; x += 5) {
            const double expected = 255 * 0.5 * std::erfc(-(x + 0.5 - 200) / (sigma * std::sqrt(2)));
            EXPECT_NEAR(green(after, x, 20), expected, 6) << "sigma " << sigma << ", x " << x;
        }
    }
}

TEST(Blur, WhatIsOutsideOfTheAreaDoesNotBleedIn)
{
    Bitmap picture = filled(100, 100, 0xffffff);
    for (int y = 30; y < 70; ++y) {
        for (std::size_t x = 30; x < 70; ++x)
            picture.row(y)[x] = 0x336699;
    }
    picture.markChanged();
    const Bitmap after = seenThrough(picture, { 30, 30, 40, 40 }, 15, plain);
    EXPECT_NEAR(green(after, 0, 0), 0x66, 1);
    EXPECT_NEAR(green(after, 39, 20), 0x66, 1);
}

TEST(Blur, GrowsWithoutSteps)
{
    const Bitmap picture = [] {
        Bitmap edge = filled(200, 16, 0);
        for (int y = 0; y < 16; ++y) {
            for (std::size_t x = 100; x < 200; ++x)
                edge.row(y)[x] = 0xffffff;
        }
        edge.markChanged();
        return edge;
    }();
    int last = 0;
    for (double sigma = 0.5; sigma < 40; sigma += 0.1) {
        const int now = green(seenThrough(picture, picture.extent(), sigma, plain), 90, 8);
        EXPECT_NEAR(now, last, 5) << sigma;
        last = now;
    }
}

TEST(Materials, SaturateThenDarkenThenTint)
{
    const auto through = [](std::uint32_t color, const Material& material) {
        return at(seenThrough(filled(8, 8, color), { 0, 0, 8, 8 }, 0, material), 4, 4);
    };
    EXPECT_EQ(through(0x808080, { 0, 3, 1, { 0, 0, 0, 0 } }), 0x808080U); // grey has nothing to saturate
    EXPECT_EQ(through(0x804020, { 0, 0, 1, { 0, 0, 0, 0 } }) & 0xff, through(0x804020, { 0, 0, 1, {} }) >> 16);
    EXPECT_EQ(through(0x808080, { 0, 1, 0.5, { 0, 0, 0, 0 } }), 0x404040U);
    EXPECT_EQ(through(0x000000, { 0, 1, 1, { 1, 0, 0, 1 } }), 0xff0000U);
    EXPECT_EQ(through(0x123456, { 0, 1, 1, { 0, 0, 1, 1 } }), 0x0000ffU);
}

TEST(Materials, AStyleThatNobodyAsksForIsAPlainBlur)
{
    EXPECT_EQ(materialOfStyle(4711), materialOfStyle(2));
    EXPECT_TRUE(materialOfStyle(2).keepsColors());
}

} // namespace
} // namespace panotra::render
