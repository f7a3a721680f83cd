/// The skins, row by row.
#include "facts/MixerSkins.h"
#include "tests/support/KnownFacts.h"

#include <gtest/gtest.h>

namespace panotra {
namespace {

void expectColor(const Rgba& color, const testing::KnownColor& known)
{
    EXPECT_EQ(color.red, known.red);
    EXPECT_EQ(color.green, known.green);
    EXPECT_EQ(color.blue, known.blue);
    EXPECT_EQ(color.alpha, known.alpha);
}

TEST(MixerSkins, EachHasTheNameColoursAndMaterialOfItsNumber)
{
    ASSERT_EQ(mixerSkins.size(), std::size(testing::knownSkins));
    for (const testing::KnownSkin& known : testing::knownSkins) {
        SCOPED_TRACE(known.name);
        const MixerSkin& skin = *findMixerSkin(known.number);
        EXPECT_STREQ(skin.name, known.name);
        expectColor(skin.border, known.border);
        EXPECT_EQ(skin.backdropStyle, known.backdropStyle);
        expectColor(skin.text, known.text);
        EXPECT_EQ(skin.isBlack, known.isBlack);
    }
}

TEST(MixerSkins, NoOtherNumberNamesOne)
{
    for (const std::uint16_t number : testing::numbersWithoutSkin)
        EXPECT_EQ(findMixerSkin(number), nullptr) << number;
}

} // namespace
} // namespace panotra
