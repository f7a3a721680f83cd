/// The look of the panel: every skin in both styles, and what no skin touches.
#include "tests/support/MixerTest.h"

namespace panotra {
namespace {

constexpr sim::Rgba black { 0, 0, 0, 1 };
constexpr sim::Rgba white { 1, 1, 1, 1 };

struct SkinCase {
    int skin;
    sim::Rgba border;
    std::int64_t style;
    double effectAlpha;
    std::optional<sim::Rgba> background;
    sim::Rgba title;
};

const SkinCase skinCases[] = {
    { 0, { 0.2, 0.2, 0.2, 0.15 }, 2010, 1, std::nullopt, black },
    { 1, { 0.8, 0.8, 0.8, 0.15 }, 1001, 1, std::nullopt, { 0.9, 0.9, 0.9, 0.9 } },
    { 2, { 1, 1, 1, 0.15 }, 2050, 1, std::nullopt, { 1, 1, 1, 0.9 } },
    { 3, { 1, 1, 1, 0.25 }, -2, 0, black, white },
};

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
        for (const SkinCase& each : skinCases) {
            showWithSkin(style, each.skin);
            EXPECT_EQ(view("_containerView").layer.borderColor, each.border) << each.skin;
            EXPECT_EQ(backdrop().style, each.style);
            EXPECT_EQ(backdrop().effect->alpha, each.effectAlpha);
            EXPECT_EQ(backdrop().background, each.background);
            for (const char* title : { "_groupLabel0", "_groupLabel1", "_groupLabel2" })
                EXPECT_EQ(view<sim::Label>(title).textColor, each.title);
            dismiss();
        }
    }
}

TEST_F(Skin, ANumberWithoutASkinLeavesTheLookThatThePanelWasBuiltWith)
{
    for (const int skin : { 4, 65535 }) {
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
    showWithSkin(banner, 4);
    EXPECT_EQ(view("_containerView").layer.borderColor, (sim::Rgba { 0.2, 0.2, 0.2, 0.15 }));
    EXPECT_EQ(backdrop().style, 2010);
    EXPECT_EQ(view<sim::Label>("_groupLabel0").textColor, std::nullopt);
}

TEST_F(Skin, NoSkinTouchesCornersBordersWidthsOrTheBlurBehindThePanel)
{
    for (const SkinCase& each : skinCases) {
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
