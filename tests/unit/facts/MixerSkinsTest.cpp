/// The four skins, row by row.
#include "facts/MixerSkins.h"

#include <gtest/gtest.h>

namespace panotra {
namespace {

void expectColor(const Rgba& color, double red, double green, double blue, double alpha)
{
    EXPECT_EQ(color.red, red);
    EXPECT_EQ(color.green, green);
    EXPECT_EQ(color.blue, blue);
    EXPECT_EQ(color.alpha, alpha);
}

TEST(MixerSkins, TheFirstIsLightWithBlackText)
{
    const MixerSkin& skin = *findMixerSkin(0);
    expectColor(skin.border, 0.2, 0.2, 0.2, 0.15);
    EXPECT_EQ(skin.backdropStyle, 2010);
    expectColor(skin.text, 0, 0, 0, 1);
    EXPECT_FALSE(skin.isBlack);
}

TEST(MixerSkins, TheSecondIsDarkWithPaleText)
{
    const MixerSkin& skin = *findMixerSkin(1);
    expectColor(skin.border, 0.8, 0.8, 0.8, 0.15);
    EXPECT_EQ(skin.backdropStyle, 1001);
    expectColor(skin.text, 0.9, 0.9, 0.9, 0.9);
    EXPECT_FALSE(skin.isBlack);
}

TEST(MixerSkins, TheThirdIsDarkWithWhiteText)
{
    const MixerSkin& skin = *findMixerSkin(2);
    expectColor(skin.border, 1, 1, 1, 0.15);
    EXPECT_EQ(skin.backdropStyle, 2050);
    expectColor(skin.text, 1, 1, 1, 0.9);
    EXPECT_FALSE(skin.isBlack);
}

TEST(MixerSkins, TheFourthIsBlackWithoutBlur)
{
    const MixerSkin& skin = *findMixerSkin(3);
    expectColor(skin.border, 1, 1, 1, 0.25);
    EXPECT_EQ(skin.backdropStyle, -2);
    expectColor(skin.text, 1, 1, 1, 1);
    EXPECT_TRUE(skin.isBlack);
}

TEST(MixerSkins, NoOtherNumberNamesOne)
{
    EXPECT_EQ(findMixerSkin(4), nullptr);
    EXPECT_EQ(findMixerSkin(65535), nullptr);
}

} // namespace
} // namespace panotra
