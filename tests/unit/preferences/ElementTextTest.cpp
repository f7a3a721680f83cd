/// Values as XML writes them.
#include "simulator/preferences/ElementText.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <limits>

namespace panotra::preferences {
namespace {

using namespace std::string_literals;

TEST(ElementText, AnIntegerHas64Bits)
{
    for (const char* text : { "", " ", "x", "1x", "1.5", "18446744073709551616", "-9223372036854775809", "--1", "+-1",
             "0x", "0x1G", "0xFFFFFFFFFFFFFFFFF", "-0x8000000000000001", "1 2", "1e3" })
        EXPECT_FALSE(integerOf(text)) << text;
}

TEST(ElementText, ARealIsADecimalNumberOrAWord)
{
    const std::pair<const char*, double> cases[] = { { "0.1", 0.1 }, { "1", 1 }, { "-1e300", -1e300 }, { " 2 ", 2 },
        { "+.5", 0.5 }, { "5.", 5 }, { "1E+2", 100 }, { "1e-999", 0 }, { "007", 7 },
        { "inf", std::numeric_limits<double>::infinity() }, { "+infinity", std::numeric_limits<double>::infinity() },
        { "-Infinity", -std::numeric_limits<double>::infinity() } };
    for (const auto& [text, value] : cases)
        EXPECT_EQ(realOf(text), value) << text;
    EXPECT_TRUE(std::isnan(*realOf("nan")));
    EXPECT_TRUE(std::signbit(*realOf("-0")));
    for (const char* text : { "", "x", "1,5", "1 2", ".", "e5", "1e", "1e+", "0x1p3", "1e999", "-1e999", "-nan",
             "nan(1)", "+-1", "infinite" })
        EXPECT_FALSE(realOf(text)) << text;
}

TEST(ElementText, ARealIsWrittenWithAllItsDigits)
{
    EXPECT_EQ(textOfReal(0.1), "0.10000000000000001");
    EXPECT_EQ(textOfReal(1), "1");
    EXPECT_EQ(textOfReal(-0.0), "-0");
    for (const double real : { 0.1, 1.0 / 3, 1e300, 4.9406564584124654e-324, 2.2250738585072014e-308, -0.0,
             double { 0.3f }, std::numeric_limits<double>::max(), std::numeric_limits<double>::infinity(),
             -std::numeric_limits<double>::infinity() })
        EXPECT_EQ(std::bit_cast<std::uint64_t>(*realOf(textOfReal(real))), std::bit_cast<std::uint64_t>(real));
}

TEST(ElementText, ADateIsADayOfTheCalendarAndATimeOfTheDay)
{
    EXPECT_EQ(dateOf("2001-01-01T00:00:00Z")->seconds, 0);
    EXPECT_EQ(dateOf(" 2020-02-29T23:59:59Z\n")->seconds, 604713599);
    EXPECT_EQ(dateOf("1970-01-01T00:00:00Z")->seconds, -978307200);
    for (const char* text : { "", "yesterday", "2020-01-02", "2020-01-02T03:04:05.5Z", "2020-01-02T03:04:05+01:00",
             "2020-21-02T03:04:05Z", "2020-00-02T03:04:05Z", "2020-01-00T03:04:05Z", "2020-01-32T03:04:05Z",
             "2021-02-29T03:04:05Z", "2020-01-02T43:04:05Z", "2020-01-02T24:00:00Z", "2020-01-02T03:60:05Z",
             "2020-01-02T03:04:60Z", "2020-1-2T03:04:05Z", "2020-01-02 03:04:05Z" })
        EXPECT_FALSE(dateOf(text)) << text;
}

TEST(ElementText, EveryDateIsReadBack)
{
    for (const char* text : { "0000-01-01T00:00:00Z", "1600-02-29T12:00:00Z", "1999-12-31T23:59:59Z",
             "2020-02-29T23:59:59Z", "2069-01-19T03:14:08Z", "9999-12-31T23:59:59Z" })
        EXPECT_EQ(textOfDate(*dateOf(text)), text);
    for (const double seconds : { 0.5, -1e300, 1e300, std::numeric_limits<double>::quiet_NaN(), 3e11, -0.0 })
        EXPECT_FALSE(textOfDate({ seconds })) << seconds;
}

TEST(ElementText, DataIsWholeGroupsOfBase64)
{
    EXPECT_EQ(dataOf("AAEC\n\t/+8=")->bytes, "\0\1\2\xFF\xEF"s);
    EXPECT_EQ(dataOf("")->bytes, "");
    EXPECT_EQ(dataOf(" \n")->bytes, "");
    for (const char* text :
        { "A", "AA", "AAA", "AAAAA", "#", "AA=A", "=AAA", "A===", "====", "AAAA====", "AB==", "AAB=" })
        EXPECT_FALSE(dataOf(text)) << text;
}

TEST(ElementText, EveryLengthOfDataIsReadBack)
{
    std::string bytes;
    for (int length = 0; length < 300; ++length) {
        EXPECT_EQ(dataOf(textOfData({ bytes }))->bytes, bytes);
        bytes.push_back(static_cast<char>(length * 7));
    }
}

} // namespace
} // namespace panotra::preferences
