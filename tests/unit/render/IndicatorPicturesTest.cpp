/// The host's own indicator, drawn.
#include "simulator/device/Preferences.h"
#include "tests/unit/render/PictureTest.h"

#include <nlohmann/json.hpp>

namespace panotra::testing {
namespace {

class IndicatorPictures : public PictureTest { };

TEST_F(IndicatorPictures, ItIsASquareInTheMiddleForTwoSecondsAndThenFades)
{
    const Bitmap home = drawn();
    device.home->presentVolumeHUD(0, 0.5F);
    const Bitmap shown = drawn();
    const PixelRect square = differenceBetween(home, shown);
    EXPECT_NEAR(square.x, home.width() - (square.x + square.width), 1);
    EXPECT_NEAR(square.y, home.height() - (square.y + square.height), 1);
    EXPECT_NEAR(square.width, square.height, 1);
    device.runLoop->wait(1.99);
    EXPECT_EQ(differenceBetween(shown, drawn()), PixelRect {});
    device.runLoop->wait(0.2);
    const Bitmap fading = drawn();
    EXPECT_FALSE(differenceBetween(shown, fading).isEmpty());
    EXPECT_FALSE(differenceBetween(home, fading).isEmpty());
    device.runLoop->wait(0.22);
    EXPECT_EQ(differenceBetween(home, drawn()), PixelRect {});
}

TEST_F(IndicatorPictures, AskedForAgainItStaysLonger)
{
    device.home->presentVolumeHUD(0, 0.5F);
    const Bitmap shown = drawn();
    device.runLoop->wait(1.5);
    device.home->presentVolumeHUD(0, 0.5F);
    device.runLoop->wait(1.5);
    EXPECT_EQ(differenceBetween(shown, drawn()), PixelRect {});
}

TEST_F(IndicatorPictures, ItStaysAsLongAsItIsAskedTo)
{
    const Bitmap home = drawn();
    device.home->presentHUD(5);
    device.runLoop->wait(4.9);
    EXPECT_FALSE(differenceBetween(home, drawn()).isEmpty());
    device.runLoop->wait(0.6);
    EXPECT_EQ(differenceBetween(home, drawn()), PixelRect {});
}

TEST_F(IndicatorPictures, AStepOfTheButtonsIsOneSegment)
{
    device.home->presentVolumeHUD(0, 0.5F);
    PixelRect last;
    for (const float level : { 0.5625F, 0.625F, 0.6875F }) {
        const PixelRect segment = changedBy([&] { device.home->presentVolumeHUD(0, level); });
        EXPECT_EQ(segment.width, 14);
        EXPECT_EQ(segment.height, 14);
        if (!last.isEmpty()) {
            EXPECT_EQ(segment.x, last.x + 16);
        }
        last = segment;
    }
}

TEST_F(IndicatorPictures, ItStandsUprightForTheViewer)
{
    for (const std::int64_t orientation : { 1, 2, 3, 4 }) {
        device.screen->orientation = orientation;
        device.home->presentVolumeHUD(0, 0);
        const int middle = viewed().height() / 2;
        const PixelRect segments = changedBy([&] { device.home->presentVolumeHUD(0, 0.01F); });
        EXPECT_LT(segments.y, middle) << "the speaker's waves are over the segments, orientation " << orientation;
        const PixelRect lit = changedBy([&] { device.home->presentVolumeHUD(0, 1); });
        EXPECT_GT(lit.y, middle) << orientation;
        EXPECT_GT(lit.width, lit.height) << orientation;
    }
}

class Replaced : public PictureTest, public ::testing::WithParamInterface<bool> { };

TEST_P(Replaced, ByTheMixerTheIndicatorIsNotDrawn)
{
    device.preferences->set("net.qorvath.panotra", "replaceHUD", GetParam());
    library.load();
    device.home->finishLaunching();
    device.home->press(sim::Button::Up);
    EXPECT_EQ(device.home->indicator.has_value(), !GetParam());
}

INSTANTIATE_TEST_SUITE_P(OrNot, Replaced, ::testing::Bool());

} // namespace
} // namespace panotra::testing
