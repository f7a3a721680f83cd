/// The look of the panel: every skin in both styles, and what no skin touches.
#include "tests/support/MixerTest.h"
#include "tests/support/SkinLooks.h"

namespace panotra {
namespace {

struct Skin : testing::MixerTest {
    void showWithSkin(int style, int skin)
    {
        store("mixerSkin", skin);
        show(style);
    }
    sim::BackdropView& backdrop() const { return view<sim::BackdropView>("_rootBackdropView"); }
};

TEST_F(Skin, EverySkinLooksTheSameInBothStyles)
{
    for (const int style : { panel, banner }) {
        for (const testing::SkinLook& each : testing::skinLooks()) {
            showWithSkin(style, each.skin);
            EXPECT_EQ(view("_containerView").layer.borderColor, each.border) << each.skin;
            EXPECT_EQ(backdrop().style, each.style);
            EXPECT_EQ(backdrop().effect->alpha, each.effectAlpha);
            EXPECT_EQ(backdrop().background, each.background);
            for (const char* title : { "_groupLabel0", "_groupLabel1", "_groupLabel2" })
                EXPECT_EQ(view<sim::Label>(title).textColor, each.text);
            dismiss();
        }
    }
}

TEST_F(Skin, ANumberWithoutASkinLeavesTheLookThatThePanelWasBuiltWith)
{
    for (const std::uint16_t skin : testing::numbersWithoutSkin) {
        showWithSkin(panel, skin);
        EXPECT_EQ(view("_containerView").layer.borderColor, std::nullopt);
        EXPECT_EQ(backdrop().style, -2);
        EXPECT_EQ(backdrop().effect->alpha, 1);
        EXPECT_EQ(backdrop().background, std::nullopt);
        EXPECT_EQ(view<sim::Label>("_groupLabel0").textColor, std::nullopt);
        dismiss();
    }
}

TEST_F(Skin, ANumberWithoutASkinLeavesTheLookThatTheBannerWasBuiltWith)
{
    showWithSkin(banner, testing::numbersWithoutSkin[0]);
    EXPECT_EQ(view("_containerView").layer.borderColor, (sim::Rgba { 0.2, 0.2, 0.2, 0.15 }));
    EXPECT_EQ(backdrop().style, 2010);
    EXPECT_EQ(view<sim::Label>("_groupLabel0").textColor, std::nullopt);
}

TEST_F(Skin, NoSkinTouchesCornersBordersWidthsOrTheBlurBehindThePanel)
{
    for (const testing::SkinLook& each : testing::skinLooks()) {
        showWithSkin(panel, each.skin);
        const auto& blur = view<sim::BackdropView>("_blurBackdropView");
        EXPECT_EQ(blur.style, 2) << each.skin;
        EXPECT_EQ(blur.effect->alpha, 1);
        EXPECT_EQ(blur.background, std::nullopt);
        EXPECT_EQ(view("_containerView").layer.borderWidth, 1.5);
        EXPECT_TRUE(testing::isNear(view("_containerView").layer.cornerRadius, 26.88));
        dismiss();
    }
}

TEST_F(Skin, WithoutAMixerThereIsNothingToLookDifferent)
{
    launch();
    controller().mixerSkinOptions();
    EXPECT_FALSE(controller().window());
}

} // namespace
} // namespace panotra
