/// Paths into the state and the comparison with what a scenario expects.
#include "simulator/scenario/Expectation.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

namespace panotra::sim {
namespace {

const Json state = Json::parse(R"({
    "globals": { "replaceHUD": false, "scale": 0.875, "globalCategory": null },
    "sliders": { "1": { "text": "50%", "frame": [1, 2.5, 3, 4] } },
    "system": { "Audio/Video": 0.10000000149011612 },
    "prefs": { "net.qorvath.panotra": { "volume7": 0.5, "a.b": 1, "a": { "b": 2 } }, "net": { "x": "yes" } },
    "pending": [ { "selector": "destroyHUDWindow" } ]
})");

std::string at(std::string_view path)
{
    const auto* value = valueAt(state, path);
    return value == nullptr ? "nowhere" : value->dump();
}

TEST(Path, LeadsThroughObjectsByKeys)
{
    EXPECT_EQ(at("globals.scale"), "0.875");
    EXPECT_EQ(at("sliders.1.text"), "\"50%\"");
    EXPECT_EQ(at("system.Audio/Video"), "0.10000000149011612");
}

TEST(Path, TakesTheLongestKeyThatFits)
{
    EXPECT_EQ(at("prefs.net.qorvath.panotra.volume7"), "0.5");
    EXPECT_EQ(at("prefs.net.x"), "\"yes\"");
    EXPECT_EQ(at("prefs.net.qorvath.panotra.a.b"), "1");
}

TEST(Path, IndexesListsByNumbers)
{
    EXPECT_EQ(at("sliders.1.frame.1"), "2.5");
    EXPECT_EQ(at("pending.0.selector"), "\"destroyHUDWindow\"");
}

TEST(Path, ThatLeadsNowhereIsNull)
{
    for (const auto* path : { "", "global", "globals.", ".globals", "globals..scale", "globals.scale.x",
             "sliders.1.frame.4", "sliders.1.frame.-1", "sliders.1.frame.1.0", "sliders.1.frame.",
             "sliders.1.frame.99999999999999999999", "net" })
        EXPECT_EQ(at(path), "nowhere") << path;
}

std::string meantBy(std::string_view path)
{
    return nearestPath(state, path).value_or("nobody knows");
}

TEST(Path, ThatIsMisspeltHasANearestRightOne)
{
    EXPECT_EQ(meantBy("global.scale"), "globals.scale");
    EXPECT_EQ(meantBy("globals.replacehud"), "globals.replaceHUD");
    EXPECT_EQ(meantBy("globls.scal"), "globals.scale");
    EXPECT_EQ(meantBy("sliders.1.txt"), "sliders.1.text");
    EXPECT_EQ(meantBy("sliders.1.fram.3"), "sliders.1.frame.3");
    EXPECT_EQ(meantBy("system.Audio-Video"), "system.Audio/Video");
    EXPECT_EQ(meantBy("pending.0.selektor"), "pending.0.selector");
}

TEST(Path, ThatIsMisspeltInAKeyWithDotsHasOneToo)
{
    EXPECT_EQ(meantBy("prefs.net.qorvath.panotra.volum7"), "prefs.net.qorvath.panotra.volume7");
    EXPECT_EQ(meantBy("prefs.net.qorvat.panotra.volume7"), "prefs.net.qorvath.panotra.volume7");
}

TEST(Path, ThatIsLikeNoOtherHasNone)
{
    for (const auto* path : { "", "volume", "globals.", "globals.scale.x", "sliders.1.frame.4", "sliders.2.text",
             "pending.1.selector", "globals.globalCategory.x" })
        EXPECT_EQ(meantBy(path), "nobody knows") << path;
}

TEST(Expectation, NumbersMatchWithinAMillionth)
{
    EXPECT_TRUE(matches(0.5, "0.5000009"));
    EXPECT_TRUE(matches(0.5, "5e-1"));
    EXPECT_FALSE(matches(0.5, "0.500002"));
    EXPECT_TRUE(matches(Json(0.1F), "0.1"));
    EXPECT_TRUE(matches(2, "2.0000001"));
    EXPECT_FALSE(matches(2, "two"));
    EXPECT_FALSE(matches(0, std::nullopt));
}

TEST(Expectation, WholeNumbersMatchExactly)
{
    EXPECT_TRUE(matches(std::int64_t { 9223372036854775807 }, "9223372036854775807"));
    EXPECT_FALSE(matches(std::int64_t { 9223372036854775807 }, "9223372036854775806"));
}

TEST(Expectation, NilMatchesNullAndNothingElse)
{
    EXPECT_TRUE(matches(nullptr, std::nullopt));
    EXPECT_FALSE(matches(nullptr, "nil"));
    EXPECT_FALSE(matches("nil", std::nullopt));
    EXPECT_TRUE(matches("nil", "nil"));
    EXPECT_FALSE(matches(nullptr, "0"));
}

TEST(Expectation, YesAndNoMatchBooleans)
{
    EXPECT_TRUE(matches(true, "yes"));
    EXPECT_TRUE(matches(false, "no"));
    EXPECT_FALSE(matches(true, "no"));
    EXPECT_FALSE(matches(true, "1"));
    EXPECT_FALSE(matches(1, "yes"));
}

TEST(Expectation, StringsMatchToTheLetter)
{
    EXPECT_TRUE(matches("50%", "50%"));
    EXPECT_FALSE(matches("50%", "50"));
    EXPECT_TRUE(matches("yes", "yes"));
    EXPECT_TRUE(matches("1", "1"));
    EXPECT_FALSE(matches("1", "1.0"));
}

TEST(Expectation, ObjectsAndListsMatchNothing)
{
    EXPECT_FALSE(matches(Json::object(), "{}"));
    EXPECT_FALSE(matches(Json::array(), std::nullopt));
}

TEST(Expectation, ValuesAreShownInTheWordsOfAScenario)
{
    EXPECT_EQ(inScenarioWords(nullptr), "nil");
    EXPECT_EQ(inScenarioWords(true), "yes");
    EXPECT_EQ(inScenarioWords(0.5), "0.5");
    EXPECT_EQ(inScenarioWords("a\nb"), "\"a\\nb\"");
    EXPECT_EQ(inScenarioWords(Json::object()), "an object");
    EXPECT_EQ(inScenarioWords(Json::array()), "a list");
}

} // namespace
} // namespace panotra::sim
