/// The overlay's pixels, without a display.
#include "simulator/desktop/OverlayPicture.h"

#include "simulator/LinkedLibrary.h"
#include "simulator/desktop/OverlayPlan.h"
#include "simulator/device/HomeScreen.h"
#include "simulator/device/RunLoop.h"
#include "simulator/device/Services.h"
#include "simulator/device/View.h"
#include "simulator/picture/PictureFolder.h"
#include "simulator/picture/ShownMixer.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <stdexcept>

namespace panotra::testing {
namespace {

using render::Bitmap;
using render::PixelRect;
using Kind = sim::OverlayPicture::Kind;

constexpr int desktopWidth = 480;
constexpr int desktopHeight = 720;

/// Nowhere the same on both sides of anything.
Bitmap stripes()
{
    Bitmap picture(desktopWidth, desktopHeight, render::PixelFormat::Opaque);
    for (int y = 0; y < desktopHeight; ++y) {
        for (int x = 0; x < desktopWidth; ++x) {
            const std::uint32_t stripe = (x / 16 + y / 16) % 2 == 0 ? 0xe0a030 : 0x2040a0;
            picture.row(y)[static_cast<std::size_t>(x)] = 0xff000000 + stripe + static_cast<unsigned>(y / 8);
        }
    }
    picture.markChanged();
    return picture;
}

int channel(std::uint32_t pixel, int number)
{
    return static_cast<int>(pixel >> 8 * number & 0xff);
}

class OverlayPictureTest : public ::testing::Test {
protected:
    void show(std::int64_t style)
    {
        showing.screen = { desktopWidth, desktopHeight, 1 };
        showing.style = style;
        sim::beginToShow(device, sim::loadedLibrary(), showing);
    }
    const sim::View& mixer() const
    {
        const sim::View* const view = sim::viewToShow(device);
        if (view == nullptr)
            throw std::runtime_error("no mixer");
        return *view;
    }
    PixelRect crop() const { return render::presenceOf(device, mixer()).shape.extent(); }
    sim::OverlayPicture picture(Kind kind, render::Renderer& by) { return { by, device, stripes(), crop(), kind }; }
    static std::unique_ptr<render::Renderer> renderer()
    {
        std::string failure;
        auto made = sim::makeRenderer(
            render::Wallpaper::dusk(), [](const std::string&) {}, failure);
        if (made == nullptr)
            throw std::runtime_error(failure);
        return made;
    }
    /// How far the translucent picture, laid over what is behind it, is from the opaque one: the worst channel.
    int farthestFromOpaque(const Bitmap& translucent, const Bitmap& opaque) const
    {
        const Bitmap behind = stripes();
        const PixelRect place = crop();
        int worst = 0;
        for (int y = 0; y < place.height; ++y) {
            for (int x = 0; x < place.width; ++x) {
                const std::uint32_t over = translucent.row(y)[static_cast<std::size_t>(x)];
                const std::uint32_t under = behind.row(y + place.y)[static_cast<std::size_t>(x + place.x)];
                const std::uint32_t expected = opaque.row(y)[static_cast<std::size_t>(x)];
                for (const int number : { 0, 1, 2 }) {
                    const double seen
                        = channel(over, number) + channel(under, number) * (255.0 - channel(over, 3)) / 255;
                    worst = std::max(worst, static_cast<int>(std::lround(std::abs(seen - channel(expected, number)))));
                }
            }
        }
        return worst;
    }

    sim::Device device;
    sim::MixerShowing showing;
    std::unique_ptr<render::Renderer> one = renderer();
    std::unique_ptr<render::Renderer> other = renderer();
};

TEST_F(OverlayPictureTest, OutsideOfItsRoundCornersIsWhatIsBehindIt)
{
    show(0);
    sim::finishShowing(device, showing);
    auto opaque = picture(Kind::Opaque, *one);
    const Bitmap& pixels = opaque.draw(device, mixer()).pixels;
    const PixelRect place = crop();
    const Bitmap behind = stripes();
    EXPECT_EQ(pixels.row(0)[0] & 0xffffff, behind.row(place.y)[static_cast<std::size_t>(place.x)] & 0xffffff);
    const auto middle = static_cast<std::size_t>(place.width / 2);
    EXPECT_NE(pixels.row(place.height / 2)[middle] & 0xffffff,
        behind.row(place.y + place.height / 2)[middle + static_cast<std::size_t>(place.x)] & 0xffffff);
}

TEST_F(OverlayPictureTest, LaidOverWhatIsBehindItIsTheSameWhereverInItsFade)
{
    show(0);
    auto opaque = picture(Kind::Opaque, *one);
    auto translucent = picture(Kind::Translucent, *other);
    for (const double seconds : { 0.0, 0.2, 0.05, 0.5 }) {
        device.runLoop->wait(seconds);
        const Bitmap& expected = opaque.draw(device, mixer()).pixels;
        const Bitmap& found = translucent.draw(device, mixer()).pixels;
        EXPECT_LE(farthestFromOpaque(found, expected), 2) << "after another " << seconds;
    }
}

TEST_F(OverlayPictureTest, ItIsNotThereBeforeItFadesIn)
{
    show(1);
    auto translucent = picture(Kind::Translucent, *one);
    const Bitmap& pixels = translucent.draw(device, mixer()).pixels;
    for (int y = 0; y < pixels.height(); ++y) {
        for (const std::uint32_t pixel : pixels.row(y))
            ASSERT_EQ(pixel, 0U);
    }
    sim::finishShowing(device, showing);
    const Bitmap& shown = translucent.draw(device, mixer()).pixels;
    EXPECT_EQ(shown.row(0)[0], 0U) << "a corner";
    EXPECT_EQ(shown.row(shown.height() / 2)[static_cast<std::size_t>(shown.width() / 2)] >> 24, 255U);
}

TEST_F(OverlayPictureTest, NothingChangesWhereNothingMoves)
{
    show(0);
    sim::finishShowing(device, showing);
    for (const Kind kind : { Kind::Opaque, Kind::Translucent }) {
        auto drawn = picture(kind, *one);
        EXPECT_FALSE(drawn.draw(device, mixer()).changed.empty());
        EXPECT_TRUE(drawn.draw(device, mixer()).changed.empty());
        sim::holdSlider(device, 7);
        device.runLoop->wait(0.5);
        const auto changed = drawn.draw(device, mixer()).changed;
        ASSERT_FALSE(changed.empty());
        for (const PixelRect& rect : changed) {
            EXPECT_TRUE((PixelRect { 0, 0, crop().width, crop().height }).covers(rect));
            EXPECT_LT(rect.height, crop().height / 2) << "only the slider swells";
        }
        device.home->pan(7, 3, 10);
        device.runLoop->wait(3);
    }
}

TEST_F(OverlayPictureTest, WhereNobodyKnowsWhatIsBehindThereIsAPlainColour)
{
    show(0);
    sim::finishShowing(device, showing);
    sim::OverlayPicture plain(*one, device, {}, crop(), Kind::Opaque);
    const Bitmap& pixels = plain.draw(device, mixer()).pixels;
    EXPECT_EQ(pixels.row(0)[0], pixels.row(0).back());
    EXPECT_NE(pixels.row(0)[0] & 0xffffff, 0U);
}

TEST_F(OverlayPictureTest, ItIsAsLargeAsItsCropWhateverTheScale)
{
    show(0);
    sim::finishShowing(device, showing);
    device.screen->scale = 1.25;
    sim::OverlayPicture drawn(*one, device, {}, crop(), Kind::Translucent);
    const Bitmap& pixels = drawn.draw(device, mixer()).pixels;
    EXPECT_EQ(pixels.width(), static_cast<int>(std::lround(280 * 1.25)));
    EXPECT_EQ(pixels.height(), 526) << "the pixels that it touches";
}

} // namespace
} // namespace panotra::testing
