/// What must be true of every picture of the mixer.
#include "facts/MixerSkins.h"
#include "facts/VolumeSlots.h"
#include "tests/support/PictureComparison.h"
#include "tests/unit/render/PictureTest.h"

#include <algorithm>
#include <cmath>
#include <set>
#include <string>
#include <vector>

namespace panotra::testing {
namespace {

constexpr std::int64_t panel = 0;
constexpr std::int64_t banner = 1;
constexpr std::int64_t blackSkin = 3;
constexpr int slotCount = volumeSlotCount;

class MixerPictures : public PictureTest {
protected:
    static sim::MixerShowing showing(std::int64_t style, std::int64_t skin, std::int64_t orientation = 1)
    {
        sim::MixerShowing showing;
        showing.style = style;
        showing.skin = skin;
        showing.orientation = orientation;
        return showing;
    }
    sim::View& slider(int slot) { return *sim::sliderOf(device, slot); }

    /// Every view below, labels and pictures hidden, so that nothing is over the fills.
    static void hideTexts(sim::View& view)
    {
        if (dynamic_cast<sim::Label*>(&view) != nullptr || dynamic_cast<sim::ImageView*>(&view) != nullptr)
            view.setHidden(true);
        for (sim::View* const subview : view.subviews)
            hideTexts(*subview);
    }
    static std::vector<sim::Label*> labelsOf(sim::View& view)
    {
        std::vector<sim::Label*> labels;
        if (auto* const label = dynamic_cast<sim::Label*>(&view))
            labels.push_back(label);
        for (sim::View* const subview : view.subviews) {
            for (sim::Label* const label : labelsOf(*subview))
                labels.push_back(label);
        }
        return labels;
    }

    /// Whether a pixel's middle lies in the view, in its own coordinates and as far as `margin` from its edges.
    /// Where the pixels of a view are, but for a margin. Two steps to the side say where every other pixel leads.
    class Area {
    public:
        Area(const sim::View& view, double scale, double margin)
            : m_bounds(view.bounds)
            , m_margin(margin)
        {
            const auto at = [&](double x, double y) {
                return view.fromScreen({ x / scale, y / scale });
            };
            const auto origin = at(0.5, 0.5), right = at(1.5, 0.5), down = at(0.5, 1.5);
            if (!origin || !right || !down)
                return;
            m_isThere = true;
            m_origin = *origin;
            m_right = { right->x - origin->x, right->y - origin->y };
            m_down = { down->x - origin->x, down->y - origin->y };
        }
        bool holds(int x, int y) const
        {
            const double across = m_origin.x + x * m_right.x + y * m_down.x;
            const double along = m_origin.y + x * m_right.y + y * m_down.y;
            return m_isThere && across >= m_margin && across < m_bounds.width - m_margin && along >= m_margin
                && along < m_bounds.height - m_margin;
        }

    private:
        sim::Size m_bounds;
        double m_margin;
        bool m_isThere = false;
        sim::Point m_origin {}, m_right {}, m_down {};
    };
    Area area(const sim::View& view, double margin) const { return { view, device.screen->scale, margin }; }
};

/// The fills of all sliders of an upright mixer, seen as what differs from the same mixer with fills of no width.
class Fills : public MixerPictures, public ::testing::WithParamInterface<std::tuple<std::int64_t, std::int64_t>> { };

TEST_P(Fills, EndAtLevelTimesWidthToThePixel)
{
    const auto [style, skin] = GetParam();
    show(showing(style, skin));
    hideTexts(held("_window"));
    const Bitmap filled = drawn();
    std::vector<double> edges; // pixels
    for (int slot = 0; slot < slotCount; ++slot) {
        sim::View& view = slider(slot);
        const double level = sim::levelOf(device, &view);
        const auto origin = view.fromScreen({ 0, 0 }).value();
        const double unit = view.fromScreen({ 1, 0 }).value().x - origin.x;
        edges.push_back((level * view.bounds.width - origin.x) / unit * device.screen->scale);
        sim::View& fill = *view.subviews.front()->subviews.front()->subviews.front();
        ASSERT_NE(dynamic_cast<sim::BackdropView*>(&fill), nullptr);
        fill.setHidden(true);
    }
    const Bitmap empty = drawn();
    for (int slot = 0; slot < slotCount; ++slot) {
        const auto middle = slider(slot).fromScreen({ 0, 0 }).value();
        const double unit = slider(slot).fromScreen({ 0, 1 }).value().y - middle.y;
        const int y = static_cast<int>((slider(slot).bounds.height / 2 - middle.y) / unit * device.screen->scale);
        const int lastWhole = static_cast<int>(std::floor(edges[static_cast<std::size_t>(slot)] + 0.001)) - 1;
        const int firstBeyond = static_cast<int>(std::ceil(edges[static_cast<std::size_t>(slot)] - 0.001));
        EXPECT_NE(pixel(filled, lastWhole, y), pixel(empty, lastWhole, y)) << "slot " << slot;
        EXPECT_EQ(pixel(filled, firstBeyond, y), pixel(empty, firstBeyond, y)) << "slot " << slot;
    }
}

INSTANTIATE_TEST_SUITE_P(InEveryStyleAndSkin, Fills,
    ::testing::Combine(
        ::testing::Values(panel, banner), ::testing::Range(std::int64_t { 0 }, std::int64_t { mixerSkins.size() })),
    [](const auto& test) {
        return (std::get<0>(test.param) == panel ? "panelSkin" : "bannerSkin")
            + std::to_string(std::get<1>(test.param));
    });

class BlackPanel : public MixerPictures, public ::testing::WithParamInterface<std::int64_t> { };

TEST_P(BlackPanel, IsOpaqueBlackBehindTheSliders)
{
    show(showing(GetParam(), blackSkin));
    const sim::View& container = held("_containerView");
    const double cornerRadius = container.layer.cornerRadius * 1.6; // as far as a continuous corner reaches
    std::vector<Area> inFront;
    for (const char* const label : { "_groupLabel0", "_groupLabel1", "_groupLabel2" })
        inFront.push_back(area(held(label), -1));
    for (int slot = 0; slot < slotCount; ++slot)
        inFront.push_back(area(slider(slot), -1));
    const Area inside = area(container, cornerRadius);
    const Bitmap picture = drawn(render::Wallpaper::dawn());
    constexpr int enough = 1000;
    int looked = 0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            // To ask where a pixel is takes long, and a black one may be anywhere.
            if (looked > enough && pixel(picture, x, y) == 0)
                continue;
            const auto isUnder = [&](const Area& view) {
                return view.holds(x, y);
            };
            if (!inside.holds(x, y) || std::ranges::any_of(inFront, isUnder))
                continue;
            ASSERT_EQ(pixel(picture, x, y), 0U) << "at " << x << ", " << y;
            ++looked;
        }
    }
    EXPECT_GT(looked, enough);
}

INSTANTIATE_TEST_SUITE_P(InBothStyles, BlackPanel, ::testing::Values(panel, banner));

class Held : public MixerPictures, public ::testing::WithParamInterface<std::int64_t> { };

TEST_P(Held, ThePanelIsInTheMiddleOfTheScreen)
{
    show(showing(panel, 1, GetParam()));
    const Bitmap picture = viewed();
    const PixelRect found = changedBy([&] { held("_containerView").setHidden(true); });
    ASSERT_FALSE(found.isEmpty());
    EXPECT_EQ(found.x, picture.width() - (found.x + found.width));
    EXPECT_EQ(found.y, picture.height() - (found.y + found.height));
}

TEST_P(Held, EveryTitleStandsUprightAndOverItsPercentage)
{
    show(showing(panel, 0, GetParam()));
    for (int slot = 0; slot < slotCount; ++slot) {
        const auto labels = labelsOf(slider(slot));
        ASSERT_EQ(labels.size(), 2U);
        const PixelRect title = changedBy([&] { labels[0]->setHidden(true); });
        const PixelRect percentage = changedBy([&] { labels[1]->setHidden(true); });
        EXPECT_GT(title.width, title.height) << "slot " << slot;
        EXPECT_LT(title.y + title.height / 2, percentage.y) << "slot " << slot;
    }
}

TEST_P(Held, TheStatusBarIsAtTheViewersTop)
{
    sim::MixerShowing turned = showing(banner, 0, GetParam());
    show(turned);
    const PixelRect bar = changedBy([&] { device.screen->statusBarHidden = true; });
    ASSERT_FALSE(bar.isEmpty());
    EXPECT_LE(bar.y + bar.height, 20 * 2);
    EXPECT_GT(bar.width, 300 * 2);
}

INSTANTIATE_TEST_SUITE_P(InEveryWay, Held, ::testing::Values(1, 2, 3, 4));

TEST_F(MixerPictures, UpsideDownTheBlackPanelLooksTheSame)
{
    show(showing(panel, blackSkin));
    held("_blurBackdropView").setHidden(true);
    const Bitmap upright = viewed();
    const PixelRect place = changedBy([&] { held("_containerView").setHidden(true); });
    held("_containerView").setHidden(false);
    device.screen->orientation = 2;
    device.home->reorientHUD(true);
    device.runLoop->wait(1);
    const Bitmap turned = viewed();

    // Inside of the round corners, where the home screen is not seen.
    constexpr int border = 60;
    const auto cut = [&](const Bitmap& picture) {
        Bitmap part(place.width - 2 * border, place.height - 2 * border, render::PixelFormat::Opaque);
        const auto context = part.makeContext();
        cairo_set_source_surface(context.get(), picture.surface(), -place.x - border, -place.y - border);
        cairo_paint(context.get());
        return part;
    };
    EXPECT_EQ(firstDifference(cut(upright), cut(turned)), std::nullopt);
}

TEST_F(MixerPictures, AtAlphaZeroTheHomeScreenIsUntouchedToTheBit)
{
    const Bitmap home = drawn();
    show(showing(panel, 0));
    EXPECT_FALSE(differenceBetween(home, drawn()).isEmpty());
    held("_window").setAlpha(0);
    EXPECT_EQ(differenceBetween(home, drawn()), PixelRect {});
}

TEST_F(MixerPictures, ABlurOfZeroIsNoBlur)
{
    show(showing(panel, 0));
    auto& blur = held<sim::BackdropView>("_blurBackdropView");
    blur.setHidden(true);
    const Bitmap withoutBlur = drawn();
    blur.setHidden(false);
    EXPECT_FALSE(differenceBetween(withoutBlur, drawn()).isEmpty());
    blur.setBlurRadius(0);
    EXPECT_EQ(differenceBetween(withoutBlur, drawn()), PixelRect {});
}

TEST_F(MixerPictures, TheFadeGoesThroughTheValuesBetween)
{
    sim::beginToShow(device, library, showing(panel, 0));
    std::set<std::uint32_t> colors;
    double last = -1;
    for (const double time : { 0.16, 0.2, 0.225, 0.25, 0.29 }) {
        device.runLoop->wait(time - device.runLoop->now());
        const Bitmap withPanel = drawn();
        held("_containerView").setHidden(true);
        const Bitmap without = drawn();
        held("_containerView").setHidden(false);
        const int x = withPanel.width() / 2;
        const int y = withPanel.height() / 2 + 170;
        const double part = std::abs(static_cast<double>(pixel(withPanel, x, y) >> 8 & 0xff)
            - static_cast<double>(pixel(without, x, y) >> 8 & 0xff));
        EXPECT_GE(part, last) << "at " << time;
        last = part;
        colors.insert(pixel(withPanel, x, y));
    }
    EXPECT_EQ(colors.size(), 5U);
}

} // namespace
} // namespace panotra::testing
