/// Words, quotes, comments and bytes.
#include "simulator/scenario/Lexer.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace panotra::sim {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

std::vector<std::string> wordsOf(std::string_view text)
{
    std::vector<std::string> words;
    for (const auto& line : readLines(text)) {
        for (const auto& word : line.words)
            words.push_back(word.text);
    }
    return words;
}

std::string mistakeOf(std::string_view text)
{
    const auto lines = readLines(text);
    return lines.size() == 1 ? lines.front().mistake.value_or("none") : "not one line";
}

TEST(Lexer, SpacesAndTabsSeparateWords)
{
    EXPECT_THAT(wordsOf("\t pan  3\tbegan 5 \t"), ElementsAre("pan", "3", "began", "5"));
}

TEST(Lexer, NothingButBlanksAndCommentsIsNoLine)
{
    EXPECT_THAT(readLines(""), IsEmpty());
    EXPECT_THAT(readLines("\n \t\n# a comment\n   # another\r\n"), IsEmpty());
}

TEST(Lexer, LinesAreCountedFromOneWithTheEmptyOnes)
{
    const auto lines = readLines("\n# one\nload\n\nlaunch");
    ASSERT_EQ(lines.size(), 2U);
    EXPECT_EQ(lines[0].number, 3U);
    EXPECT_EQ(lines[1].number, 5U);
}

TEST(Lexer, ALineKeepsItsSourceWithoutTheBlanksAroundIt)
{
    EXPECT_EQ(readLines("  route Headphone  # plugged in \r\n").at(0).source, "route Headphone  # plugged in");
}

TEST(Lexer, ALineKeepsTheCommentsAboveIt)
{
    const auto lines = readLines("\n# one\n\t\n # two\n\n\nload # now\nlaunch\n# three");
    ASSERT_EQ(lines.size(), 2U);
    EXPECT_THAT(lines[0].remarks, ElementsAre("# one", "", "# two"));
    EXPECT_THAT(lines[1].remarks, IsEmpty());
}

TEST(Lexer, QuotesMayHoldBlanksAndHashes)
{
    EXPECT_THAT(wordsOf("category \"Voice # Command\""), ElementsAre("category", "Voice # Command"));
}

TEST(Lexer, AQuotedPartMayStandAnywhereInAWord)
{
    EXPECT_THAT(wordsOf("a\"b c\"d\"\"e"), ElementsAre("ab cde"));
}

TEST(Lexer, EmptyQuotesAreAnEmptyWord)
{
    EXPECT_THAT(wordsOf("route \"\""), ElementsAre("route", ""));
}

TEST(Lexer, InsideQuotesABackslashEscapesQuotesAndBackslashesOnly)
{
    EXPECT_THAT(wordsOf(R"("a\"b" "a\\b" "a\nb")"), ElementsAre("a\"b", "a\\b", "a\\nb"));
}

TEST(Lexer, OutsideQuotesABackslashStandsForItself)
{
    EXPECT_THAT(wordsOf(R"(a\b \#no)"), ElementsAre("a\\b", "\\"));
}

TEST(Lexer, AHashInsideAWordStartsAComment)
{
    EXPECT_THAT(wordsOf("load#now"), ElementsAre("load"));
}

TEST(Lexer, WhetherAnyPartWasQuotedIsRemembered)
{
    const auto lines = readLines("nil \"nil\" ni\"l\"");
    ASSERT_EQ(lines.at(0).words.size(), 3U);
    EXPECT_FALSE(lines[0].words[0].quoted);
    EXPECT_TRUE(lines[0].words[1].quoted);
    EXPECT_TRUE(lines[0].words[2].quoted);
}

TEST(Lexer, ACarriageReturnIsABlankAtTheEndOfALineOnly)
{
    EXPECT_THAT(wordsOf("load\r\nlaunch\r"), ElementsAre("load", "launch"));
    EXPECT_THAT(wordsOf("lo\rad"), ElementsAre("lo\rad"));
    EXPECT_THAT(wordsOf("\"a\"\r\n"), ElementsAre("a"));
}

TEST(Lexer, AQuoteThatIsNotClosedIsAMistake)
{
    for (const auto* text : { "route \"Speaker", "route Speaker\"", "\"", "\"a\\\"", "\"a\\" })
        EXPECT_THAT(mistakeOf(text), HasSubstr("quote that is not closed")) << text;
}

TEST(Lexer, AQuoteDoesNotReachIntoTheNextLine)
{
    const auto lines = readLines("route \"Spea\nker\"");
    ASSERT_EQ(lines.size(), 2U);
    EXPECT_TRUE(lines[0].mistake);
    EXPECT_TRUE(lines[1].mistake);
}

TEST(Lexer, WellFormedUtf8IsTaken)
{
    EXPECT_THAT(wordsOf("é € 😀 \xF4\x8F\xBF\xBF \xED\x9F\xBF \xC2\x80"),
        ElementsAre("é", "€", "😀", "\xF4\x8F\xBF\xBF", "\xED\x9F\xBF", "\xC2\x80"));
}

TEST(Lexer, BytesThatAreNotUtf8AreAMistakeEvenInAComment)
{
    const char* const bad[] = {
        "load # \xFF", // no first byte
        "a\x80", // a continuation without a beginning
        "\xC3", // cut short
        "\xC0\xAF",
        "\xC1\xBF",
        "\xE0\x9F\xBF",
        "\xF0\x8F\xBF\xBF", // overlong
        "\xED\xA0\x80", // a surrogate
        "\xF4\x90\x80\x80",
        "\xF5\x80\x80\x80", // past the last code point
        "\xE2\x82",
        "\xF0\x9F\x98",
        "\xE2(\xAC",
    };
    for (const auto* text : bad)
        EXPECT_THAT(mistakeOf(text), HasSubstr("expected UTF-8")) << text;
    EXPECT_EQ(mistakeOf("ab\xFFz"), "found the byte 0xff at column 3, expected UTF-8 text without NUL");
}

TEST(Lexer, NulIsAMistakeOfItsLine)
{
    const auto lines = readLines(std::string_view("load\nla\0unch\nwait 1", 19));
    ASSERT_EQ(lines.size(), 3U);
    EXPECT_FALSE(lines[0].mistake);
    EXPECT_EQ(lines[1].mistake, "found the byte 0x00 at column 3, expected UTF-8 text without NUL");
    EXPECT_FALSE(lines[2].mistake);
}

} // namespace
} // namespace panotra::sim
