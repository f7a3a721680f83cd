/// What is said of keys that nobody reads, and of values that nobody could choose.
#include "simulator/commands/PrefsAdvice.h"

#include "facts/MixerSettings.h"
#include "facts/VolumeSlots.h"

#include <gtest/gtest.h>

namespace panotra::preferences {
namespace {

const std::string own = ownDomain;
const std::string sibling = siblingDomain;

std::string advice(const std::string& domain, const std::string& key, const Json& value = 1)
{
    return adviceOnSetting(domain, key, value).value_or("");
}

TEST(PrefsAdvice, OfWhatMayBeChosenNothingIsSaid)
{
    for (const MixerSetting& setting : mixerSettings)
        EXPECT_EQ(advice(setting.domain, setting.key, setting.absentValue), "") << setting.key;
    for (const VolumeSlot& slot : volumeSlots)
        EXPECT_EQ(advice(own, slot.preferenceKey, 0.5), "");
    EXPECT_EQ(advice(own, "replaceHUD", true), "");
    EXPECT_EQ(advice("net.example.domain", "anything", "at all"), "");
}

TEST(PrefsAdvice, AKeyThatTheMixerDoesNotHaveIsNamedWithTheNearest)
{
    EXPECT_EQ(advice(own, "mixerSkn"), own + " has no key \"mixerSkn\" (did you mean mixerSkin?)");
    EXPECT_EQ(advice(own, "colour"), own + " has no key \"colour\"");
    EXPECT_EQ(advice(own, "volume12"), own + " has no key \"volume12\" (did you mean volume11?)");
    EXPECT_EQ(advice(sibling, "dismisDelay"), sibling + " has no key \"dismisDelay\" (did you mean dismissDelay?)");
    EXPECT_EQ(advice(sibling, "colour"), "") << "the sibling may have it";
}

TEST(PrefsAdvice, AKeyOfTheOtherDomainIsSentThere)
{
    EXPECT_EQ(advice(own, "dismissDelay"), "dismissDelay is a key of " + sibling + ", not of " + own);
    EXPECT_EQ(advice(sibling, "scale"), "scale is a key of " + own + ", not of " + sibling);
}

TEST(PrefsAdvice, AMisspeltDomainIsNamedWithTheRightOne)
{
    EXPECT_EQ(
        advice("net.qorvath.panorta", "scale"), "nobody reads net.qorvath.panorta (did you mean net.qorvath.panotra?)");
}

TEST(PrefsAdvice, AValueOutOfItsRangeIsToldTheRange)
{
    EXPECT_EQ(advice(own, "scale", 7), "scale: found 7, expected 0.5 to 1.25");
    EXPECT_EQ(advice(own, "activeStyle", 2), "activeStyle: found 2, expected 0 Panel, 1 Banner");
    EXPECT_EQ(advice(own, "activeStyle", "banner"), "activeStyle: found \"banner\", expected 0 Panel, 1 Banner");
    EXPECT_EQ(advice(own, "replaceHUD", -1), "replaceHUD: found -1, expected yes or no");
    EXPECT_EQ(advice(own, "volume3", 1.5), "volume3: found 1.5, expected 0 to 1");
    EXPECT_EQ(advice(sibling, "dismissDelay", 0), "dismissDelay: found 0, expected 0.5 to 10");
}

} // namespace
} // namespace panotra::preferences
