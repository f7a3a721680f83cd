/// The resource bundle as the build made it: every picture is there at every scale, and templates hold nothing but a
/// shape.
#include "facts/VolumeSlots.h"

#include <gtest/gtest.h>

#include <cairo.h>

#include <cstdint>
#include <filesystem>
#include <memory>
#include <set>
#include <string>

namespace panotra {
namespace {

const std::filesystem::path bundle = PANOTRA_BUNDLE;
constexpr int iconPoints = 30;
constexpr int settingsIconPoints = 29;
constexpr int scales[] = { 1, 2, 3 };

struct SurfaceDeleter {
    void operator()(cairo_surface_t* surface) const { cairo_surface_destroy(surface); }
};
using Surface = std::unique_ptr<cairo_surface_t, SurfaceDeleter>;

std::string fileName(const std::string& name, int scale)
{
    return name + (scale == 1 ? "" : "@" + std::to_string(scale) + "x") + ".png";
}

Surface readPicture(const std::string& name, int scale)
{
    return Surface(cairo_image_surface_create_from_png((bundle / fileName(name, scale)).c_str()));
}

/// Alpha, red, green and blue of 8 bits each, from the highest byte to the lowest, colours multiplied by alpha.
std::uint32_t pixel(const Surface& picture, int x, int y)
{
    const unsigned char* const row = cairo_image_surface_get_data(picture.get())
        + static_cast<std::ptrdiff_t>(y) * cairo_image_surface_get_stride(picture.get());
    return reinterpret_cast<const std::uint32_t*>(row)[x];
}

constexpr std::uint32_t alphaOf(std::uint32_t pixel)
{
    return pixel >> 24;
}

constexpr std::uint32_t colourOf(std::uint32_t pixel)
{
    return pixel & 0x00ffffff;
}

std::set<std::string> iconsOfTheSliders()
{
    std::set<std::string> names;
    for (const VolumeSlot& slot : volumeSlots)
        names.insert(slot.image);
    return names;
}

void expectSquare(const std::string& name, int points)
{
    for (const int scale : scales) {
        SCOPED_TRACE(fileName(name, scale));
        const Surface picture = readPicture(name, scale);
        ASSERT_EQ(cairo_surface_status(picture.get()), CAIRO_STATUS_SUCCESS);
        EXPECT_EQ(cairo_image_surface_get_format(picture.get()), CAIRO_FORMAT_ARGB32);
        EXPECT_EQ(cairo_image_surface_get_width(picture.get()), points * scale);
        EXPECT_EQ(cairo_image_surface_get_height(picture.get()), points * scale);
    }
}

TEST(Pictures, TheSlidersShareTenIcons)
{
    EXPECT_EQ(iconsOfTheSliders().size(), 10u);
}

TEST(Pictures, EveryIconOfASliderIsThereAtThreeScales)
{
    for (const std::string& name : iconsOfTheSliders())
        expectSquare(name, iconPoints);
}

TEST(Pictures, TheSettingsIconIsThereAtThreeScales)
{
    expectSquare("settingsIcon", settingsIconPoints);
}

TEST(Pictures, NothingElseIsInTheBundleButItsDescription)
{
    std::set<std::string> expected { "Info.plist" };
    for (const int scale : scales) {
        expected.insert(fileName("settingsIcon", scale));
        for (const std::string& name : iconsOfTheSliders())
            expected.insert(fileName(name, scale));
    }
    std::set<std::string> found;
    for (const auto& entry : std::filesystem::directory_iterator(bundle))
        found.insert(entry.path().filename().string());
    EXPECT_EQ(found, expected);
}

TEST(Pictures, AnIconIsAShapeInItsAlphaChannelAndHasNoColour)
{
    for (const std::string& name : iconsOfTheSliders()) {
        for (const int scale : scales) {
            SCOPED_TRACE(fileName(name, scale));
            const Surface picture = readPicture(name, scale);
            const int side = iconPoints * scale;
            int opaque = 0;
            int transparent = 0;
            for (int y = 0; y < side; ++y) {
                for (int x = 0; x < side; ++x) {
                    const std::uint32_t value = pixel(picture, x, y);
                    ASSERT_EQ(colourOf(value), 0u) << "at " << x << ", " << y;
                    opaque += alphaOf(value) == 255;
                    transparent += alphaOf(value) == 0;
                }
            }
            // A line drawing: neither empty nor a blot.
            EXPECT_GT(opaque, side * side / 50);
            EXPECT_GT(transparent, side * side / 2);
        }
    }
}

TEST(Pictures, NoIconTouchesTheEdgeOfItsPicture)
{
    for (const std::string& name : iconsOfTheSliders()) {
        SCOPED_TRACE(name);
        constexpr int scale = 3;
        const Surface picture = readPicture(name, scale);
        constexpr int last = iconPoints * scale - 1;
        for (int at = 0; at <= last; ++at) {
            EXPECT_EQ(alphaOf(pixel(picture, at, 0)), 0u);
            EXPECT_EQ(alphaOf(pixel(picture, at, last)), 0u);
            EXPECT_EQ(alphaOf(pixel(picture, 0, at)), 0u);
            EXPECT_EQ(alphaOf(pixel(picture, last, at)), 0u);
        }
    }
}

TEST(Pictures, TheSettingsIconIsAColouredTileWithRoundCorners)
{
    const Surface picture = readPicture("settingsIcon", 3);
    constexpr int middle = settingsIconPoints * 3 / 2;
    EXPECT_EQ(alphaOf(pixel(picture, 0, 0)), 0u);
    const std::uint32_t edge = pixel(picture, 3, middle);
    EXPECT_EQ(alphaOf(edge), 255u);
    EXPECT_NE(edge & 0xff, (edge >> 16) & 0xff) << "grey";
}

} // namespace
} // namespace panotra
