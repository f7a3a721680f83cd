/// Views of every kind, drawn.
#include "tests/unit/render/PictureTest.h"

#include <cmath>
#include <numbers>

namespace panotra::testing {
namespace {

constexpr sim::Rgba red { 1, 0, 0, 1 };
constexpr sim::Rgba white { 1, 1, 1, 1 };

/// A screen at 2 pixels a point, with nothing but a test's own views over the home screen.
class ViewPictures : public PictureTest {
protected:
    ViewPictures()
    {
        show();
        hideMixer();
    }
    /// How much darker than white, summed over a black text on a white ground.
    std::int64_t inkOf(const sim::Label& label) const
    {
        const sim::Rect frame = label.frame();
        const Bitmap picture = drawn();
        std::int64_t ink = 0;
        for (int y = static_cast<int>(frame.y * 2); y < (frame.y + frame.height) * 2; ++y) {
            for (int x = static_cast<int>(frame.x * 2); x < (frame.x + frame.width) * 2; ++x)
                ink += 255 - (pixel(picture, x, y) & 0xff);
        }
        return ink;
    }
    sim::Label& addLabel(const char* text)
    {
        addFilled({ 0, 100, 375, 100 }, white);
        auto& label = add<sim::Label>("UILabel", { 100, 120, 175, 60 });
        label.text = text;
        label.fontSize = 15;
        return label;
    }
};

TEST_F(ViewPictures, ABackgroundCoversTheViewToThePixel)
{
    const Bitmap home = drawn();
    addFilled({ 10.5, 20, 30, 40.5 }, red);
    const Bitmap picture = drawn();
    EXPECT_EQ(differenceBetween(home, picture), (PixelRect { 21, 40, 60, 81 }));
    EXPECT_EQ(pixel(picture, 21, 40), 0xff0000U);
    EXPECT_EQ(pixel(picture, 80, 120), 0xff0000U);
}

TEST_F(ViewPictures, ATransformTurnsAndScalesAboutTheCentre)
{
    sim::View& view = addFilled({ 100, 100, 80, 20 }, red);
    const auto shown = [&](const sim::Transform& transform) {
        return changedBy([&] { view.setTransform(transform); });
    };
    shown(render::scaling(0));
    EXPECT_EQ(shown(render::rotation(std::numbers::pi / 2)), (PixelRect { 260, 140, 40, 160 }));
    shown(render::scaling(0));
    EXPECT_EQ(shown(render::scaling(1.5)), (PixelRect { 160, 190, 240, 60 }));
    shown(render::scaling(0));
    EXPECT_EQ(shown({ 1, 0, 0, 1, 5, 7 }), (PixelRect { 210, 214, 160, 40 }));
}

TEST_F(ViewPictures, ASubviewIsCutOffWhereItsSuperviewMasksAndOnlyThere)
{
    const Bitmap home = drawn();
    sim::View& outer = add("UIView", { 100, 100, 50, 50 });
    addFilled({ 25, 25, 50, 50 }, red, &outer);
    EXPECT_EQ(differenceBetween(home, drawn()), (PixelRect { 250, 250, 100, 100 }));
    outer.layer.masksToBounds = true;
    EXPECT_EQ(differenceBetween(home, drawn()), (PixelRect { 250, 250, 50, 50 }));
}

TEST_F(ViewPictures, RoundCornersLeaveOutWhatIsOutsideOfTheCircleAndContinuousOnesMore)
{
    const Bitmap home = drawn();
    sim::View& view = addFilled({ 100, 100, 100, 100 }, red);
    const auto covered = [&] {
        const Bitmap picture = drawn();
        int count = 0;
        for (int y = 200; y < 400; ++y) {
            for (int x = 200; x < 400; ++x)
                count += pixel(picture, x, y) == 0xff0000;
        }
        return count;
    };
    EXPECT_EQ(covered(), 200 * 200);
    view.layer.cornerRadius = 25;
    const int round = covered();
    const double outside = (4 - std::numbers::pi) * 50 * 50;
    EXPECT_NEAR(round, 200 * 200 - outside, 200); // pixels on the edge are covered in part
    EXPECT_EQ(pixel(drawn(), 200, 200), pixel(home, 200, 200));
    view.layer.continuousCorners = true;
    EXPECT_LT(covered(), round - 20);
    EXPECT_GT(covered(), round - 600);
}

TEST_F(ViewPictures, ABorderRunsInsideAlongTheEdge)
{
    sim::View& view = addFilled({ 100, 100, 50, 50 }, white);
    view.layer.borderWidth = 2;
    view.layer.borderColor = red;
    const Bitmap picture = drawn();
    for (const int inside : { 200, 203, 296, 299 })
        EXPECT_EQ(pixel(picture, inside, 250), 0xff0000U) << inside;
    for (const int between : { 204, 250, 295 })
        EXPECT_EQ(pixel(picture, between, 250), 0xffffffU) << between;
}

TEST_F(ViewPictures, AlphaFadesTheGroupAndNotItsParts)
{
    sim::View& ground = addFilled({ 100, 100, 100, 100 }, { 0, 0, 0, 1 });
    sim::View& group = add("UIView", { 0, 0, 100, 100 }, &ground);
    addFilled({ 0, 0, 60, 100 }, white, &group);
    addFilled({ 40, 0, 60, 100 }, white, &group);
    group.setAlpha(0.5);
    const Bitmap picture = drawn();
    const std::uint32_t once = pixel(picture, 220, 250);
    EXPECT_NEAR(once & 0xff, 128, 1);
    EXPECT_EQ(pixel(picture, 300, 250), once);
    EXPECT_EQ(pixel(picture, 380, 250), once);
}

TEST_F(ViewPictures, AHiddenViewShowsNothingOfWhatItHolds)
{
    const Bitmap home = drawn();
    sim::View& view = addFilled({ 0, 0, 100, 100 }, red);
    addFilled({ 0, 0, 200, 200 }, red, &view);
    view.setHidden(true);
    EXPECT_EQ(differenceBetween(home, drawn()), PixelRect {});
}

TEST_F(ViewPictures, ATextStandsLeftInTheMiddleOrRight)
{
    sim::Label& label = addLabel("Ringtone");
    label.text = std::nullopt;
    const auto ink = [&](std::int64_t alignment) {
        label.alignment = alignment;
        const PixelRect found = changedBy([&] { label.text = "Ringtone"; });
        label.text = std::nullopt;
        return found;
    };
    const PixelRect left = ink(0);
    const PixelRect middle = ink(1);
    const PixelRect right = ink(2);
    EXPECT_NEAR(left.x, 200, 4);
    EXPECT_NEAR(middle.x + middle.width / 2.0, 375, 2);
    EXPECT_NEAR(right.x + right.width, 550, 4);
    EXPECT_NEAR(left.width, right.width, 2);
    EXPECT_EQ(left.y, right.y);
    EXPECT_NEAR(left.y + left.height / 2.0, 300, 8); // the middle of the label's height
}

TEST_F(ViewPictures, ATextThatIsTooLongEndsWithinItsLabel)
{
    sim::Label& label = addLabel("A level whose name is longer than its label is wide");
    const PixelRect ink = changedBy([&] { label.setHidden(true); });
    EXPECT_GT(ink.width, 300);
    EXPECT_LE(ink.x + ink.width, 550);
}

TEST_F(ViewPictures, LightIsThinnerThanRegularAndTextTakesItsColour)
{
    sim::Label& label = addLabel("Ringtone");
    const std::int64_t regular = inkOf(label);
    label.fontWeight = "light";
    EXPECT_LT(inkOf(label), regular * 9 / 10);
    EXPECT_GT(inkOf(label), regular / 3);
    label.textColor = sim::Rgba { 1, 1, 1, 1 };
    EXPECT_EQ(inkOf(label), 0);
}

TEST_F(ViewPictures, ATemplateIsAShapeInTheTintAndNothingOfItsOwnColour)
{
    addFilled({ 100, 100, 30, 30 }, white);
    auto& view = add<sim::ImageView>("UIImageView", { 100, 100, 30, 30 });
    auto& image = *device.classes->make<sim::Image>("UIImage", "bell", std::string(PANOTRA_BUNDLE) + "/ringer@2x.png");
    image.isTemplate = true;
    view.setImage(&image);
    view.tint = sim::Rgba { 1, 0, 0, 1 };
    const Bitmap picture = drawn();
    int solid = 0;
    for (int y = 200; y < 260; ++y) {
        for (int x = 200; x < 260; ++x) {
            EXPECT_EQ(pixel(picture, x, y) >> 16, 0xffU); // between white and red
            EXPECT_EQ(pixel(picture, x, y) & 0xff, pixel(picture, x, y) >> 8 & 0xff);
            solid += pixel(picture, x, y) == 0xff0000;
        }
    }
    EXPECT_GT(solid, 60);
}

TEST_F(ViewPictures, APictureThatCannotBeReadShowsNothing)
{
    const Bitmap home = drawn();
    auto& view = add<sim::ImageView>("UIImageView", { 100, 100, 30, 30 });
    view.setImage(device.classes->make<sim::Image>("UIImage", "none", "/nowhere/none.png"));
    EXPECT_EQ(differenceBetween(home, drawn()), PixelRect {});
}

TEST_F(ViewPictures, AnAnimationShowsTheValueBetween)
{
    sim::View& view = addFilled({ 100, 100, 50, 50 }, red);
    const Bitmap home = [&] {
        view.setHidden(true);
        Bitmap picture = drawn();
        view.setHidden(false);
        return picture;
    }();
    device.runLoop->animate(
        1, 0, 0,
        [&] {
            view.setCenter({ 225, 125 });
        },
        nullptr);
    device.runLoop->wait(0.5);
    EXPECT_EQ(differenceBetween(home, drawn()), (PixelRect { 300, 200, 100, 100 }));
    device.runLoop->wait(0.6);
    EXPECT_EQ(differenceBetween(home, drawn()), (PixelRect { 400, 200, 100, 100 }));
}

TEST_F(ViewPictures, AMaterialIsAsStrongAsItsEffectView)
{
    auto& backdrop = add<sim::BackdropView>("_UIBackdropView", { 100, 100, 50, 50 });
    backdrop.style = 1001;
    const Bitmap strong = drawn();
    backdrop.effect->setAlpha(0.5);
    const Bitmap half = drawn();
    backdrop.effect->setAlpha(0);
    const Bitmap none = drawn();
    const auto green = [](const Bitmap& picture) {
        return static_cast<double>(pixel(picture, 250, 250) >> 8 & 0xff);
    };
    EXPECT_NEAR(green(half), (green(strong) + green(none)) / 2, 1.5);
    EXPECT_EQ(differenceBetween(strong, none), (PixelRect { 200, 200, 100, 100 }));
    backdrop.setHidden(true);
    EXPECT_EQ(differenceBetween(none, drawn()), PixelRect {});
}

TEST_F(ViewPictures, EveryStyleThatTheMixerAsksForLooksDifferent)
{
    auto& backdrop = add<sim::BackdropView>("_UIBackdropView", { 100, 100, 200, 200 });
    std::vector<Bitmap> pictures;
    for (const std::int64_t style : { 2, -2, 2010, 1001, 2050, 2060 }) {
        backdrop.style = style;
        pictures.push_back(drawn());
        for (std::size_t i = 0; i + 1 < pictures.size(); ++i)
            EXPECT_FALSE(differenceBetween(pictures[i], pictures.back()).isEmpty()) << style;
    }
}

TEST_F(ViewPictures, TheClockRunsWithTheDevice)
{
    EXPECT_EQ(changedBy([&] { device.runLoop->wait(1); }), PixelRect {});
    const PixelRect changed = changedBy([&] { device.runLoop->wait(60); });
    EXPECT_FALSE(changed.isEmpty());
    EXPECT_LE(changed.y + changed.height, 40);
    EXPECT_LT(changed.width, 80);
}

} // namespace
} // namespace panotra::testing
