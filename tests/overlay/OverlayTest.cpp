/// The overlay as a person sees and uses it.
#include "tests/overlay/OverlayDesk.h"

#include "simulator/device/HomeScreen.h"
#include "simulator/device/RunLoop.h"

namespace panotra::testing {
namespace {

using render::PixelRect;

constexpr PixelRect around(const PixelRect& part)
{
    constexpr int margin = 20;
    return { part.x - margin, part.y - margin, part.width + 2 * margin, part.height + 2 * margin };
}

TEST_F(OverlayDesk, APanelStandsInTheMiddleBlurredFromWhatIsBehindIt)
{
    set("activeStyle", 0);
    const std::uint32_t focus = server->focus();
    EXPECT_EQ(focus, background.window());
    present();
    goOnUntil("the panel at rest", [this] { return isAtRest(); });
    const render::Bitmap shown = screen();
    constexpr PixelRect place { 260, 90, 280, 420 };
    EXPECT_EQ(changedPart(shown), place);
    expectPicture("panel", shown, around(place));
    EXPECT_EQ(server->focus(), focus) << "the keyboard stays where it was";

    // A press beside it is the other program's, and sends the panel away.
    background.presses();
    mouse("mousemove 100 100 mousedown 1");
    goOnUntil("the panel's fade", [this] { return phone->device().runLoop->runningAnimations() > 0; });
    mouse("mouseup 1");
    goOnUntil("the panel's end", [this] { return !isShown(); });
    EXPECT_EQ(background.presses(), 1);
    EXPECT_TRUE(changedPart(screen()).isEmpty());
    EXPECT_EQ(pause->longest, -1) << "nothing wakes a mixer that nobody sees";
    EXPECT_EQ(pause->descriptor, -1);
    EXPECT_TRUE(complaints.empty());
}

TEST_F(OverlayDesk, ABannerStandsNearTheTopAndTheRestIsOthers)
{
    set("activeStyle", 1);
    set("mixerSkin", 1);
    set("dismissOnTouch", false);
    present();
    goOnUntil("the banner at rest", [this] { return isAtRest(); });
    const render::Bitmap shown = screen();
    constexpr PixelRect place { 260, 48, 280, 121 };
    EXPECT_EQ(changedPart(shown), place);
    expectPicture("banner", shown, around(place));
    background.presses();
    mouse("mousemove 400 300 click 1 mousemove 400 100 click 1");
    for (int turn = 0; turn < 20; ++turn)
        goOn();
    EXPECT_EQ(background.presses(), 1) << "the press on the banner is the banner's alone";
    EXPECT_TRUE(isShown()) << "a press beside it passes, and that is all";
    phone->device().home->sendActivatorEvent(listener::dismiss);
    goOnUntil("the banner's end", [this] { return !isShown(); });
    EXPECT_TRUE(changedPart(screen()).isEmpty());
}

TEST_F(OverlayDesk, ADragSwellsTheSliderAndSetsTheLevel)
{
    set("activeStyle", 0);
    present();
    goOnUntil("the panel at rest", [this] { return isAtRest(); });
    const render::Bitmap before = screen();
    // The slider of the alarm, on the right of the last group.
    mouse("mousemove 500 424 mousedown 1 mousemove 480 424");
    goOnUntil("the drag", [this] { return phone->device().runLoop->runningAnimations() > 0; });
    mouse("mousemove 440 424");
    const auto level = [this] {
        return levelOf("Alarm");
    };
    goOnUntil("its level", [&level] { return level() > 0.1F && level() < 0.4F; });
    // Beyond the panel's edge it is still the same drag.
    mouse("mousemove 700 424");
    goOnUntil("full level", [&level] { return level() == 1; });
    goOnUntil("rest", [this] { return isAtRest(); });
    const render::Bitmap held = screen();
    mouse("mouseup 1");
    goOnUntil("the slider as it was", [&] { return isAtRest() && screen().row(424)[403] == before.row(424)[403]; });
    EXPECT_NE(held.row(424)[403], before.row(424)[403]) << "it is larger while it is held";
}

TEST_F(OverlayDesk, WithoutADisplayThereIsNone)
{
    const std::string display = std::getenv("DISPLAY");
    std::string failure;
    setenv("DISPLAY", ":nowhere", 1);
    EXPECT_EQ(sim::Overlay::prepare([](const std::string&) {}, failure), nullptr);
    EXPECT_FALSE(failure.empty());
    // A display that goes while the program runs: it says so once, and the phone goes on.
    present();
    for (int turn = 0; turn < 5; ++turn)
        goOn();
    EXPECT_EQ(complaints.size(), 1U);
    setenv("DISPLAY", display.c_str(), 1);
}

} // namespace
} // namespace panotra::testing
