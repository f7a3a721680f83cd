/// Columns of a terminal.
#include "simulator/text/Columns.h"

#include <gtest/gtest.h>

namespace panotra {
namespace {

TEST(Columns, ACharacterFillsOneColumnHoweverManyBytesItHas)
{
    EXPECT_EQ(columnsOf(""), 0U);
    EXPECT_EQ(columnsOf("56 % → 63 %"), 11U);
    EXPECT_EQ(columnsOf("Größe"), 5U);
}

TEST(Columns, WideCharactersFillTwoAndJoiningOnesNone)
{
    EXPECT_EQ(columnsOf("音量"), 4U);
    EXPECT_EQ(columnsOf("e\xCC\x81"), 1U); // an acute accent of its own
    EXPECT_EQ(columnsOf("\xF0\x9F\x94\x8A"), 2U); // a loudspeaker
}

TEST(Columns, AByteThatIsNoCharacterFillsOne)
{
    EXPECT_EQ(columnsOf("\xFF\xC3"), 2U);
}

TEST(Columns, WhatFitsIsWholeCharactersAndAtLeastOne)
{
    EXPECT_EQ(bytesThatFit("abc", 2), 2U);
    EXPECT_EQ(bytesThatFit("音量", 3), 3U);
    EXPECT_EQ(bytesThatFit("音量", 4), 6U);
    EXPECT_EQ(bytesThatFit("音量", 1), 3U);
    EXPECT_EQ(bytesThatFit("e\xCC\x81x", 1), 3U); // what joins goes with what it joins
    EXPECT_EQ(bytesThatFit("", 5), 0U);
}

} // namespace
} // namespace panotra
