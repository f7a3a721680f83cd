/// What the home screen shows of a call, of a notification and of a finger, and how it stands.
#include "facts/AudioNames.h"
#include "simulator/render/HomePicture.h"
#include "tests/unit/render/PictureTest.h"

namespace panotra::testing {
namespace {

class OccasionPictures : public PictureTest { };

TEST_F(OccasionPictures, ACallIsAGreenBarBehindTheStatusBar)
{
    for (const std::int64_t orientation : { 1, 2, 3, 4 }) {
        device.screen->orientation = orientation;
        device.audio->activeCategory = category::audioVideo;
        const int width = viewed().width();
        device.audio->activeCategory = category::phoneCall;
        const Bitmap call = viewed();
        const std::uint32_t pixel = call.row(3)[static_cast<std::size_t>(width / 3)];
        EXPECT_GT(pixel >> 8 & 0xff, 2 * (pixel >> 16 & 0xff)) << "orientation " << orientation;
    }
}

TEST_F(OccasionPictures, ANotificationIsABannerThatComesAndGoes)
{
    const Bitmap home = drawn();
    device.home->playSound(1);
    EXPECT_EQ(differenceBetween(home, drawn()), PixelRect {}) << "it is still above the screen";
    device.runLoop->wait(0.1);
    const PixelRect coming = differenceBetween(home, drawn());
    device.runLoop->wait(0.2);
    const Bitmap shown = drawn();
    const PixelRect there = differenceBetween(home, shown);
    EXPECT_GT(there.height, coming.height);
    EXPECT_LT(there.y + there.height, home.height() / 4);
    device.runLoop->wait(2.4);
    EXPECT_EQ(differenceBetween(shown, drawn()), PixelRect {});
    device.runLoop->wait(0.4);
    EXPECT_EQ(differenceBetween(home, drawn()), PixelRect {});
}

TEST_F(OccasionPictures, ATileGivesUnderTheFingerUntilItIsLifted)
{
    const Bitmap home = drawn();
    device.touches->down(60, 60);
    const PixelRect tile = differenceBetween(home, drawn());
    EXPECT_NEAR(tile.width, 60 * device.screen->scale, 2);
    EXPECT_NEAR(tile.height, tile.width, 2);
    device.touches->up();
    EXPECT_EQ(differenceBetween(home, drawn()), PixelRect {});
    device.touches->down(2, 300);
    EXPECT_EQ(differenceBetween(home, drawn()), PixelRect {}) << "beside the tiles";
}

TEST_F(OccasionPictures, TheHomeScreenStandsUprightHoweverThePhoneIsHeld)
{
    device.screen->statusBarHidden = true;
    const Bitmap upright = viewed();
    device.screen->orientation = 2;
    const Bitmap upsideDown = viewed();
    EXPECT_EQ(differenceBetween(upright, upsideDown), PixelRect {});
    device.screen->orientation = 3;
    const Bitmap left = viewed();
    device.screen->orientation = 4;
    EXPECT_EQ(differenceBetween(left, viewed()), PixelRect {});
    EXPECT_GT(left.width(), left.height());
}

TEST(HomePictureTest, TilesAreWhereTheyAreDrawn)
{
    using render::Size;
    for (const Size screen : { Size { 375, 667 }, Size { 667, 375 }, Size { 320, 480 }, Size { 480, 320 } }) {
        int tiles = 0;
        for (double y = 0; y < screen.height; y += 10) {
            for (double x = 0; x < screen.width; x += 10) {
                const auto tile = render::tileAt(screen, { x, y });
                tiles += tile ? 1 : 0;
                if (tile) {
                    EXPECT_LE(tile->transform.tx + tile->size.width, screen.width);
                    EXPECT_LE(tile->transform.ty + tile->size.height, screen.height);
                }
            }
        }
        EXPECT_GT(tiles, 8 * 30);
    }
}

} // namespace
} // namespace panotra::testing
