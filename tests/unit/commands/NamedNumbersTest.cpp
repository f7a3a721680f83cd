/// Names in place of numbers.
#include "simulator/commands/NamedNumbers.h"

#include <gtest/gtest.h>

namespace panotra::sim {
namespace {

std::string numberOf(std::string text, const NamedNumbers& names)
{
    const auto mistake = becomeNumber(text, names);
    return mistake.empty() ? text : mistake;
}

TEST(NamedNumbers, NamesOfEveryTableBecomeTheirNumbers)
{
    EXPECT_EQ(bothSpellings(valuesOf(mixerSetting("activeStyle"))), "0 panel, 1 banner");
    EXPECT_EQ(bothSpellings(valuesOf(mixerSetting("mixerSkin"))), "0 light, 1 dark, 2 darker, 3 black");
    EXPECT_EQ(bothSpellings(orientationNames()), "1 portrait, 2 upside-down, 3 landscape-right, 4 landscape-left");
    EXPECT_EQ(numberOf("iOS14", systemNames()), "14");
    EXPECT_EQ(numberOf("ios9", systemNames()), "9");
    EXPECT_EQ(numberOf("call-headsetBT", slotNames()), "6");
    EXPECT_EQ(numberOf("receiver", slotNames()), "11");
}

TEST(NamedNumbers, NumbersOfTheTableStay)
{
    EXPECT_EQ(numberOf("4", orientationNames()), "4");
    EXPECT_EQ(numberOf("+3", orientationNames()), "3");
}

TEST(NamedNumbers, AnythingElseIsAMistakeWithTheNearestName)
{
    EXPECT_EQ(numberOf("landscape-lft", orientationNames()),
        "found \"landscape-lft\", expected one of portrait, upside-down, landscape-right, landscape-left, or its "
        "number "
        "(did you mean landscape-left?)");
    EXPECT_EQ(numberOf("7", valuesOf(mixerSetting("activeStyle"))),
        "found \"7\", expected one of panel, banner, or its number");
    EXPECT_NE(numberOf("", slotNames()), "");
    EXPECT_NE(numberOf("1.5", slotNames()), "1.5");
}

TEST(NamedNumbers, OfAPairOnlyTheNameChanges)
{
    std::string pair = "siri=0.5";
    EXPECT_EQ(becomeNumberOfPair(pair, slotNames()), "");
    EXPECT_EQ(pair, "10=0.5");
    std::string none = "siri";
    EXPECT_EQ(becomeNumberOfPair(none, slotNames()), "");
    EXPECT_EQ(none, "siri");
    std::string wrong = "sirri=1";
    EXPECT_NE(becomeNumberOfPair(wrong, slotNames()), "");
    EXPECT_EQ(wrong, "sirri=1");
}

} // namespace
} // namespace panotra::sim
