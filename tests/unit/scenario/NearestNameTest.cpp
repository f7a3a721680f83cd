/// Which misspelt words are known again.
#include "simulator/scenario/NearestName.h"

#include <gtest/gtest.h>

#include <array>

namespace panotra::sim {
namespace {

constexpr std::array<std::string_view, 5> names { "press", "prefs", "picture", "--format", "a" };

std::string suggestedFor(std::string_view word)
{
    return didYouMean(word, names);
}

TEST(NearestName, IsFoundByLettersPutInLeftOutAndExchanged)
{
    EXPECT_EQ(suggestedFor("presss"), " (did you mean press?)");
    EXPECT_EQ(suggestedFor("pres"), " (did you mean press?)");
    EXPECT_EQ(suggestedFor("pctuer"), "");
    EXPECT_EQ(suggestedFor("pictuer"), " (did you mean picture?)");
    EXPECT_EQ(suggestedFor("--fromat"), " (did you mean --format?)");
}

TEST(NearestName, IsTheNearestOfSeveral)
{
    EXPECT_EQ(suggestedFor("pref"), " (did you mean prefs?)");
    EXPECT_EQ(suggestedFor("preffs"), " (did you mean prefs?)");
}

TEST(NearestName, TakesACapitalForItsSmallLetter)
{
    EXPECT_EQ(suggestedFor("PICTURE"), " (did you mean picture?)");
}

TEST(NearestName, IsNoneForAnotherWord)
{
    for (const auto* word : { "", "b", "pr", "volume", "pictures-of-phones", "--colour" })
        EXPECT_EQ(suggestedFor(word), "") << word;
    EXPECT_EQ(suggestedFor(std::string(100000, 'p')), "");
}

TEST(Misspelling, CountsTheLetters)
{
    EXPECT_EQ(misspelling("press", "press"), 0u);
    EXPECT_EQ(misspelling("pess", "press"), 1u);
    EXPECT_EQ(misspelling("", ""), 0u);
}

TEST(Misspelling, IsNeverMeantOfANumber)
{
    EXPECT_EQ(misspelling("12", "11"), std::nullopt);
    EXPECT_EQ(misspelling("12", "12"), 0u);
}

} // namespace
} // namespace panotra::sim
