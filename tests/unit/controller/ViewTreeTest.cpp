/// createUI: what is built in each style, and in which order.
#include "tests/support/KnownFacts.h"
#include "tests/support/MixerTest.h"

namespace panotra {
namespace {

using sim::Json;
using testing::isNear;
using testing::isRectangle;
using Names = std::vector<std::string>;

struct ViewTree : testing::MixerTest {
    ViewTree() { storeLevels(0.5); }

    sim::View& content(const std::string& name) const { return *view<sim::BackdropView>(name).content; }
};

// The window and its root.

TEST_F(ViewTree, TheWindowCoversTheScreenAboveAlerts)
{
    show(panel);
    const auto& window = view<sim::Window>("_window");
    EXPECT_TRUE(isRectangle(frameOf(window), CGRectMake(0, 0, 375, 667)));
    EXPECT_EQ(window.level, 2100);
    EXPECT_TRUE(window.shown);
    EXPECT_FALSE(window.hidden);
    EXPECT_EQ(window.alpha, 1);
    EXPECT_EQ(events.back()["event"], "windowShown") << "the last step";
}

TEST_F(ViewTree, TheTurnedRootStillCoversTheWindow)
{
    for (const std::int64_t orientation : { 1, 2, 3, 4, 0 }) {
        device.screen->orientation = orientation;
        show(panel);
        const sim::View& root = view("_rootView");
        const bool isTurned = orientation == 3 || orientation == 4;
        EXPECT_TRUE(isRectangle(frameOf(root), CGRectMake(0, 0, 375, 667))) << orientation;
        EXPECT_TRUE(isNear(root.bounds.width, isTurned ? 667 : 375));
        EXPECT_TRUE(isNear(root.bounds.height, isTurned ? 375 : 667));
        dismiss();
    }
}

// The tree.

/// The title of a group and its sliders.
Names partsOfGroup(int group)
{
    Names names { "_groupLabel" + std::to_string(group) };
    for (const std::uint8_t slot : testing::slotsOfGroup(group))
        names.push_back("_volumeView" + std::to_string(slot));
    return names;
}

TEST_F(ViewTree, ThePanelLiesInFrontOfAFullScreenBlur)
{
    show(panel);
    EXPECT_EQ(namesOf(view("_window").subviews), (Names { "_blurBackdropView", "_rootView" }));
    EXPECT_EQ(namesOf(view("_rootView").subviews), (Names { "_containerView" }));
    EXPECT_EQ(namesOf(view("_containerView").subviews), (Names { "_rootBackdropView" }));
    EXPECT_EQ(namesOf(content("_rootBackdropView").subviews), (Names { "_groupView0", "_groupView1", "_groupView2" }));
    EXPECT_EQ(namesOf(view("_groupView0").subviews), partsOfGroup(0));
    EXPECT_EQ(namesOf(view("_groupView1").subviews), partsOfGroup(1));
    EXPECT_EQ(namesOf(view("_groupView2").subviews), partsOfGroup(2));
}

TEST_F(ViewTree, TheBannerHasNoBlurBehindIt)
{
    show(banner);
    EXPECT_EQ(namesOf(view("_window").subviews), (Names { "_rootView" }));
    EXPECT_FALSE(controller().valueForKey("_blurBackdropView"));
    EXPECT_EQ(namesOf(view("_rootView").subviews), (Names { "_containerView" }));
    EXPECT_EQ(namesOf(view("_containerView").subviews), (Names { "_rootBackdropView" }));
    EXPECT_EQ(namesOf(content("_rootBackdropView").subviews), (Names { "_groupView0", "_groupView1", "_groupView2" }));
    EXPECT_EQ(namesOf(view("_groupView0").subviews), partsOfGroup(0));
    EXPECT_EQ(namesOf(view("_groupView1").subviews), partsOfGroup(1));
    EXPECT_EQ(namesOf(view("_groupView2").subviews), partsOfGroup(2));
}

TEST_F(ViewTree, AnyOtherStyleShowsAnEmptyTurnedRoot)
{
    for (const int style : { 2, 7, 65535 }) {
        device.screen->orientation = 3;
        show(style);
        EXPECT_EQ(namesOf(view("_window").subviews), (Names { "_rootView" })) << style;
        EXPECT_TRUE(view("_rootView").subviews.empty());
        EXPECT_TRUE(isNear(view("_rootView").transform.b, 1));
        EXPECT_TRUE(view<sim::Window>("_window").shown);
        for (const char* name :
            { "_containerView", "_rootBackdropView", "_groupView0", "_groupLabel0", "_volumeView0" })
            EXPECT_FALSE(controller().valueForKey(name)) << name;
        EXPECT_EQ(countOf("animate"), 0u) << "nothing fades in";
        EXPECT_EQ(countOf("write"), 0u) << "nothing is loaded";
        EXPECT_TRUE(processValues.justCreated) << "nothing is laid out";
        dismiss();
        EXPECT_FALSE(controller().window());
        forgetEvents();
    }
}

// What the parts are.

TEST_F(ViewTree, ThePanelsSlidersAreNamed)
{
    show(panel);
    for (const testing::KnownSlider& each : testing::knownSliders) {
        EXPECT_EQ(part<sim::Label>(each.slot, "_label0").text, each.name);
        EXPECT_EQ(fieldOf(slider(each.slot), "_imageView"), nullptr);
        EXPECT_EQ(slider(each.slot).tag(), each.slot);
        EXPECT_EQ(device.classes->scalarForKey(slider(each.slot).get(), "_canGoToZero"), each.canGoToZero);
    }
}

TEST_F(ViewTree, TheBannersSlidersHaveIcons)
{
    show(banner);
    for (const testing::KnownSlider& each : testing::knownSliders) {
        EXPECT_EQ(part<sim::ImageView>(each.slot, "_imageView").image->baseName, each.image);
        EXPECT_EQ(fieldOf(slider(each.slot), "_label0"), nullptr);
        EXPECT_EQ(slider(each.slot).tag(), each.slot);
        EXPECT_EQ(device.classes->scalarForKey(slider(each.slot).get(), "_canGoToZero"), each.canGoToZero);
    }
}

TEST_F(ViewTree, TheGroupsHaveTheirTitlesInBothStyles)
{
    const Names panelTitles { "Media Volume Level", "PhoneCall Volume Level", "Extra Volumes Level" };
    const Names bannerTitles { "Media", "PhoneCall", "Extras" };
    for (const int style : { panel, banner }) {
        show(style);
        for (std::size_t group = 0; group < groupCount; ++group) {
            const auto& title = view<sim::Label>("_groupLabel" + std::to_string(group));
            EXPECT_EQ(title.text, (style == panel ? panelTitles : bannerTitles)[group]);
            EXPECT_EQ(title.alignment, 1);
            EXPECT_EQ(title.fontSize, 14);
            EXPECT_EQ(title.fontWeight, "light");
        }
        dismiss();
    }
}

TEST_F(ViewTree, EveryBackdropFitsItsSuperviewAndTakesTouches)
{
    store("mixerSkin", testing::numbersWithoutSkin[0]); // the styles are createUI's
    show(panel);
    const auto& blur = view<sim::BackdropView>("_blurBackdropView");
    const auto& root = view<sim::BackdropView>("_rootBackdropView");
    EXPECT_EQ(blur.style, 2);
    EXPECT_EQ(root.style, -2);
    for (const sim::BackdropView* const each : { &blur, &root }) {
        EXPECT_EQ(each->quality, 100);
        EXPECT_TRUE(each->autosizes);
        EXPECT_TRUE(each->interaction);
    }
    EXPECT_TRUE(isRectangle(frameOf(blur), CGRectMake(0, 0, 375, 667)));
    EXPECT_TRUE(isRectangle(frameOf(root), CGRectMake(0, 0, 320, 480)));
    dismiss();
    show(banner);
    EXPECT_EQ(view<sim::BackdropView>("_rootBackdropView").style, 2010);
    EXPECT_EQ(view<sim::BackdropView>("_rootBackdropView").quality, 100);
    EXPECT_TRUE(view("_rootBackdropView").interaction);
}

TEST_F(ViewTree, TheContainersHaveRoundBorderedCorners)
{
    show(panel);
    EXPECT_TRUE(isNear(view("_containerView").layer.cornerRadius, 26.88)); // 320 · 480 · 0.000175
    dismiss();
    show(banner);
    EXPECT_TRUE(isNear(view("_containerView").layer.cornerRadius, 130.56 / 7)); // 320 · 960 / 7 · 0.000425
    dismiss();
    for (const int style : { panel, banner }) {
        show(style);
        const sim::Layer& layer = view("_containerView").layer;
        EXPECT_TRUE(layer.masksToBounds);
        EXPECT_TRUE(layer.continuousCorners);
        EXPECT_EQ(layer.borderWidth, 1.5);
        dismiss();
    }
}

TEST_F(ViewTree, CornersStayOrdinaryWhereTheSystemDoesNotKnowContinuousOnes)
{
    device.classes->platformClass("CALayer").methods.erase(sim::selector("setContinuousCorners:"));
    show(panel);
    EXPECT_FALSE(view("_containerView").layer.continuousCorners);
    EXPECT_FALSE(sliderView(0).layer.continuousCorners);
    EXPECT_TRUE(view("_containerView").layer.masksToBounds);
}

TEST_F(ViewTree, OnlyABannerThatATouchMayDismissCatchesTouchesAllOverTheScreen)
{
    for (const int style : { panel, banner }) {
        for (const bool dismissOnTouch : { false, true }) {
            store("dismissOnTouch", dismissOnTouch);
            show(style);
            const auto expected = style == banner && dismissOnTouch
                ? std::optional(sim::Rgba { 0.95, 0.95, 0.95, 0.006 })
                : std::nullopt;
            EXPECT_EQ(view("_rootView").background, expected) << "style " << style;
            dismiss();
        }
    }
}

TEST_F(ViewTree, TheBannersPartsStandWhereTheyWereWorkedOut)
{
    show(banner);
    // The numbers are the geometry's own for a banner of 320 × 960 / 7 points; here they have reached the views.
    const double top = 9.6 / 7;
    EXPECT_TRUE(isRectangle(frameOf(view("_groupView0")), CGRectMake(3.2, top, 102.4, 134.4)));
    EXPECT_TRUE(isRectangle(frameOf(view("_groupView1")), CGRectMake(108.8, top, 102.4, 134.4)));
    EXPECT_TRUE(isRectangle(frameOf(view("_groupView2")), CGRectMake(214.4, top, 102.4, 134.4)));
    for (const char* title : { "_groupLabel0", "_groupLabel1", "_groupLabel2" })
        EXPECT_TRUE(isRectangle(frameOf(view(title)), CGRectMake(2.5, 2.5, 97.4, 17.5)));
    const CGRect cells[] = { CGRectMake(3.2, 26.72, 47.12, 47.12), CGRectMake(53.52, 26.72, 47.12, 47.12),
        CGRectMake(3.2, 80.56, 47.12, 47.12), CGRectMake(53.52, 80.56, 47.12, 47.12) };
    for (const int group : { 0, 1, 2 }) {
        const std::vector<std::uint8_t> slots = testing::slotsOfGroup(group);
        ASSERT_GE(slots.size(), std::size(cells));
        for (std::size_t cell = 0; cell < std::size(cells); ++cell) {
            EXPECT_TRUE(isRectangle(frameOf(sliderView(slots[cell])), cells[cell])) << int(slots[cell]);
            EXPECT_TRUE(isNear(sliderView(slots[cell]).layer.cornerRadius, 23.56)) << "laid out as icon sliders";
        }
    }
}

TEST_F(ViewTree, TheBannerIsShrunkOnceItIsBuilt)
{
    show(banner);
    EXPECT_TRUE(isNear(view("_containerView").transform.a, 0.875));
    EXPECT_TRUE(isNear(view("_containerView").frame().height, 120)); // 960 / 7 · 7 / 8
    dismiss();
    store("scale", 0.5);
    show(banner);
    EXPECT_EQ(view("_containerView").transform.a, 0.5);
    EXPECT_EQ(view("_containerView").transform.d, 0.5);
}

TEST_F(ViewTree, TheSlidersComeUpWithTheirOwnRememberedLevels)
{
    for (const VolumeSlot& slot : volumeSlots)
        store(slot.preferenceKey, (slot.number + 1) / 16.0);
    for (const int style : { panel, banner }) {
        show(style);
        for (SlotNumber slot = 0; slot < volumeSlotCount; ++slot) {
            const double level = (slot + 1) / 16.0;
            EXPECT_EQ(slider(slot).volume(), level);
            EXPECT_TRUE(isNear(part(slot, "_volumeView").frame().width, level * sliderView(slot).frame().width))
                << "slot " << int(slot) << " in style " << style;
        }
        dismiss();
    }
    // The phone call's Bluetooth slider is first laid out with its neighbour's level, and shows its own all the same.
    EXPECT_EQ(stored("volume6"), 7 / 16.0);
}

} // namespace
} // namespace panotra
