/// From frame to frame: what the renderer keeps must not be seen.
#include "tests/unit/render/PictureTest.h"

#include <algorithm>
#include <cstdlib>

namespace panotra::testing {
namespace {

class Frames : public PictureTest {
protected:
    /// Draws one frame more, and compares it with one that is drawn from nothing and with the one before.
    void drawFrame(const char* what)
    {
        const auto frame = renderer->draw(device);
        EXPECT_LE(largestDifference(frame.pixels, drawn()), tolerance) << what << " at " << device.runLoop->now();
        if (!last.isEmpty())
            expectChangedCovers(frame, what);
        last = render::asViewed(frame.pixels, 1);
    }
    static int largestDifference(const Bitmap& one, const Bitmap& other)
    {
        int largest = 0;
        for (int y = 0; y < one.height(); ++y) {
            if (areRowsSame(one, other, y))
                continue;
            for (int x = 0; x < one.width(); ++x) {
                for (const int shift : { 0, 8, 16 }) {
                    const auto difference = static_cast<int>(pixel(one, x, y) >> shift & 0xff)
                        - static_cast<int>(pixel(other, x, y) >> shift & 0xff);
                    largest = std::max(largest, std::abs(difference));
                }
            }
        }
        return largest;
    }
    void drawFrames(const char* what, double seconds)
    {
        constexpr double step = 0.06;
        for (double passed = 0; passed < seconds; passed += step) {
            device.runLoop->wait(step);
            drawFrame(what);
        }
    }

    std::unique_ptr<render::Renderer> renderer = makeRenderer();
    Bitmap last;
    int tolerance = 0; ///< of 255

private:
    void expectChangedCovers(const render::Renderer::Frame& frame, const char* what) const
    {
        int uncovered = 0;
        for (int y = 0; y < last.height(); ++y) {
            if (areRowsSame(last, frame.pixels, y))
                continue;
            for (int x = 0; x < last.width(); ++x) {
                const auto holds = [&](const PixelRect& rect) {
                    return rect.covers({ x, y, 1, 1 });
                };
                uncovered
                    += pixel(last, x, y) != pixel(frame.pixels, x, y) && std::ranges::none_of(frame.changed, holds);
            }
        }
        EXPECT_EQ(uncovered, 0) << what << " at " << device.runLoop->now();
    }
};

class FramesOfAStyle : public Frames, public ::testing::WithParamInterface<std::int64_t> { };

TEST_P(FramesOfAStyle, AreThoseOfARendererThatKeepsNothing)
{
    sim::MixerShowing showing;
    showing.screen = { 320, 480, 1 };
    showing.style = GetParam();
    sim::beginToShow(device, library, showing);
    drawFrame("before the fade-in");
    drawFrames("fading in", 0.36);
    device.home->announce("Audio/Video", "ExplicitVolumeChange", 0.25F);
    device.runLoop->turn();
    drawFrames("swelling", 0.5);
    sim::holdSlider(device, 4);
    for (const double level : { 0.9, 0.4, 0.1, 0.1 }) {
        sim::moveHeldSlider(device, 4, level);
        drawFrames("dragging", 0.1);
    }
    device.screen->orientation = 3;
    device.home->reorientHUD(true);
    device.runLoop->turn();
    // Where the part that is drawn anew ends, cairo works out slanting edges in another way, a shade different.
    tolerance = 16;
    drawFrames("turning", 0.36);
    tolerance = 0;
    device.runLoop->wait(1);
    drawFrame("turned");
    device.home->presentVolumeHUD(0, 0.5F);
    drawFrames("the host's own indicator", 0.12);
    device.home->sendActivatorEvent("net.qorvath.panotra.dismissmixer");
    device.runLoop->turn();
    drawFrames("fading out", 0.1);
    device.home->announce("Audio/Video", "ExplicitVolumeChange", 0.75F);
    drawFrames("fading out while a level changes", 0.4);
    device.runLoop->wait(2);
    drawFrame("gone");
}

INSTANTIATE_TEST_SUITE_P(InBothStyles, FramesOfAStyle, ::testing::Values(0, 1));

TEST_F(Frames, NothingIsDrawnWhenNothingMoves)
{
    show();
    EXPECT_FALSE(renderer->draw(device).changed.empty());
    device.runLoop->wait(1);
    EXPECT_TRUE(renderer->draw(device).changed.empty());
}

TEST_F(Frames, AScreenOfAnotherSizeStartsAfresh)
{
    renderer->draw(device);
    device.screen->width = 320;
    device.screen->height = 480;
    drawFrame("smaller");
    EXPECT_EQ(last.width(), 640);
    device.screen->scale = 3;
    EXPECT_EQ(renderer->draw(device).pixels.height(), 1440);
}

TEST_F(Frames, SidesOfNoPixelOrOfTooManyAreRefused)
{
    const auto refused = [](double width, double height, double scale) {
        return render::whyTooLargeOrSmall({ width, height }, scale).has_value();
    };
    EXPECT_FALSE(refused(375, 667, 2));
    EXPECT_FALSE(refused(1, 1, 1));
    EXPECT_FALSE(refused(8192, 8192, 1));
    EXPECT_TRUE(refused(8193, 1, 1));
    EXPECT_TRUE(refused(1, 4097, 2));
    EXPECT_TRUE(refused(0.4, 100, 1));
    EXPECT_TRUE(refused(1e300, 1e300, 1e300));
}

} // namespace
} // namespace panotra::testing
