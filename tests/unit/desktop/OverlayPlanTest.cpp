/// Where the overlay stands, and when there is one.
#include "simulator/desktop/OverlayPlan.h"

#include "simulator/device/View.h"
#include "tests/support/MixerTest.h"

namespace panotra::testing {
namespace {

using render::PixelRect;
using sim::PhoneOnDesktop;

TEST(OverlayPlan, TheLargerTheMonitorTheLargerThePhone)
{
    struct Row {
        int height;
        double unitsPerPoint;
    };
    for (const Row& row : { Row { 480, 1 }, { 768, 1 }, { 1040, 1.25 }, { 1440, 1.5 }, { 2160, 2.5 }, { 9000, 4 } })
        EXPECT_EQ(sim::unitsPerPointOn({ 0, 0, 1000, row.height }), row.unitsPerPoint) << row.height;
}

TEST(OverlayPlan, APanelStandsInTheMiddleOfTheMonitor)
{
    const PixelRect second { 1920, 30, 1600, 900 };
    const PhoneOnDesktop phone = sim::placePhone(second, { 100, 150, 280, 420 });
    EXPECT_EQ(phone.unitsPerPoint, 1);
    EXPECT_EQ(phone.x, 1920 + (1600 - sim::overlayScreen.width) / 2);
    EXPECT_EQ(phone.y, 30 + (900 - sim::overlayScreen.height) / 2);
}

TEST(OverlayPlan, ABannerStandsNearTheTopOfTheMonitor)
{
    const PhoneOnDesktop phone = sim::placePhone({ -1280, 24, 1280, 1000 }, { 100, 40, 280, 120 });
    EXPECT_EQ(phone.y, 24);
    EXPECT_EQ(phone.x, -1280 + (1280 - sim::overlayScreen.width) / 2);
}

TEST(OverlayPlan, APhoneThatIsHigherThanTheMonitorIsInItsMiddleAllTheSame)
{
    const PhoneOnDesktop phone = sim::placePhone({ 0, 0, 640, 480 }, { 100, 150, 280, 420 });
    EXPECT_EQ(phone.y + sim::overlayScreen.height / 2, 240);
}

TEST(OverlayPlan, ThePointerIsOnThePhoneWhereItIsOnTheDesktop)
{
    const PhoneOnDesktop phone { 100, 50, 1.25 };
    EXPECT_EQ(phone.onPhone(100, 50), (sim::Point { 0, 0 }));
    EXPECT_EQ(phone.onPhone(225, 175), (sim::Point { 100, 100 }));
}

class OverlayDecision : public MixerTest { };

TEST_F(OverlayDecision, ThereIsSomethingToShowFromTheFadeInToTheEndOfTheFadeOut)
{
    launch();
    EXPECT_EQ(sim::viewToShow(device), nullptr);
    show(panel);
    EXPECT_EQ(sim::viewToShow(device), &view("_containerView"));
    dismiss();
    EXPECT_EQ(sim::viewToShow(device), nullptr);
    show(banner);
    pass(1);
    controller().destroyHUDWindow();
    pass(0.2);
    EXPECT_EQ(sim::viewToShow(device), &view("_containerView")) << "it is still fading";
    pass(5);
    EXPECT_EQ(sim::viewToShow(device), nullptr);
}

TEST_F(OverlayDecision, AStyleThatShowsNothingShowsNothing)
{
    show(7);
    EXPECT_NE(device.home->window(), nullptr);
    EXPECT_EQ(sim::viewToShow(device), nullptr);
}

} // namespace
} // namespace panotra::testing
