/// The platform's conversions of stored values.
#include "simulator/preferences/Conversions.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <cmath>
#include <limits>

namespace panotra::preferences {
namespace {

TEST(BooleanConversion, ANumberIsTrueUnlessItIsZero)
{
    EXPECT_TRUE(booleanOf(1));
    EXPECT_TRUE(booleanOf(-7));
    EXPECT_TRUE(booleanOf(0.001));
    EXPECT_TRUE(booleanOf(std::numeric_limits<std::uint64_t>::max()));
    EXPECT_FALSE(booleanOf(0));
    EXPECT_FALSE(booleanOf(0.0));
    EXPECT_FALSE(booleanOf(-0.0));
}

TEST(BooleanConversion, ABooleanIsItself)
{
    EXPECT_TRUE(booleanOf(true));
    EXPECT_FALSE(booleanOf(false));
}

TEST(BooleanConversion, AStringIsTrueIfItBeginsWithYOrT)
{
    for (const char* text : { "Y", "y", "T", "t", "yes", "Yellow", "true", "  \tyes" })
        EXPECT_TRUE(booleanOf(text)) << text;
}

TEST(BooleanConversion, AStringIsTrueIfItBeginsWithASignZerosAndADigitThatIsNotZero)
{
    for (const char* text : { "1", "9", "007", "+1", "-3", "-000200", " +01x" })
        EXPECT_TRUE(booleanOf(text)) << text;
}

TEST(BooleanConversion, AnyOtherStringIsFalse)
{
    for (const char* text : { "", " ", "0", "000", "-", "+0", "--1", "+-1", "no", "on", "x1", "0.5", "+y", "0y" })
        EXPECT_FALSE(booleanOf(text)) << text;
}

TEST(NumberConversion, NumbersAndBooleansAreTheirValue)
{
    EXPECT_EQ(numberOf(3), 3.0);
    EXPECT_EQ(numberOf(-0.25), -0.25);
    EXPECT_EQ(numberOf(true), 1.0);
    EXPECT_EQ(numberOf(false), 0.0);
}

TEST(NumberConversion, AStringIsTheDecimalNumberWithWhichItBegins)
{
    const std::pair<const char*, double> cases[] = { { "1.5", 1.5 }, { " \t\n2", 2 }, { "-3.25abc", -3.25 },
        { "+4", 4 }, { ".5", 0.5 }, { "5.", 5 }, { "1e3", 1000 }, { "1E+2x", 100 }, { "25e-2", 0.25 }, { "1e", 1 },
        { "1e+", 1 }, { "1.5.5", 1.5 }, { "0x10", 0 }, { "12 13", 12 }, { "1,5", 1 }, { "007", 7 } };
    for (const auto& [text, number] : cases)
        EXPECT_EQ(numberOf(text), number) << text;
}

TEST(NumberConversion, AStringThatBeginsWithNoNumberIsZero)
{
    for (const char* text :
        { "", " ", "x", "-", "+", ".", "-.", "e5", ".e5", "- 5", "+-5", "nan", "inf", "infinity", "yes" })
        EXPECT_EQ(numberOf(text), 0) << text;
}

TEST(NumberConversion, ANumberTooLargeOrTooSmallForADoubleIsInfiniteOrZero)
{
    EXPECT_EQ(numberOf("1e400"), std::numeric_limits<double>::infinity());
    EXPECT_EQ(numberOf("-1e400"), -std::numeric_limits<double>::infinity());
    EXPECT_EQ(numberOf("1e-400"), 0);
    EXPECT_EQ(numberOf("1e99999999999999999999"), std::numeric_limits<double>::infinity());
    EXPECT_EQ(numberOf(std::string(400, '9')), std::numeric_limits<double>::infinity());
}

TEST(NumberConversion, AnyOtherKindIsZero)
{
    EXPECT_EQ(numberOf(nullptr), 0);
    EXPECT_EQ(numberOf(Json::array({ 1 })), 0);
    EXPECT_FALSE(booleanOf(nullptr));
    EXPECT_FALSE(booleanOf(Json::object()));
    EXPECT_EQ(unsignedShortOf(nullptr), 0);
}

TEST(UnsignedShortConversion, IsTruncatedTowardZeroAndThenModulo65536)
{
    const std::pair<double, int> cases[]
        = { { 2.9, 2 }, { -0.9, 0 }, { -1.0, 65535 }, { -1.9, 65535 }, { 65535.5, 65535 }, { 65536, 0 },
              { 65537.25, 1 }, { -65536, 0 }, { -65537, 65535 }, { 4294967298.0, 2 }, { 0x1p60, 0 }, { 0x1p52 + 3, 3 },
              { -0x1p52 - 3, 65533 }, { 1e300, 0 }, { std::numeric_limits<double>::max(), 0 } };
    for (const auto& [number, expected] : cases)
        EXPECT_EQ(unsignedShortOf(number), expected) << number;
}

TEST(UnsignedShortConversion, IntegersOf64BitsAreExact)
{
    EXPECT_EQ(unsignedShortOf(std::int64_t { 9007199254740993 }), 1);
    EXPECT_EQ(unsignedShortOf(std::numeric_limits<std::int64_t>::max()), 65535);
    EXPECT_EQ(unsignedShortOf(std::numeric_limits<std::int64_t>::min()), 0);
    EXPECT_EQ(unsignedShortOf(std::numeric_limits<std::uint64_t>::max()), 65535);
    EXPECT_EQ(unsignedShortOf("9007199254740993"), 1);
    EXPECT_EQ(unsignedShortOf("+9223372036854775807 and more"), 65535);
}

TEST(UnsignedShortConversion, StringsAndBooleansAreNumbersFirst)
{
    EXPECT_EQ(unsignedShortOf("2.75"), 2);
    EXPECT_EQ(unsignedShortOf(" -1"), 65535);
    EXPECT_EQ(unsignedShortOf("65537e0"), 1);
    EXPECT_EQ(unsignedShortOf("yes"), 0);
    EXPECT_EQ(unsignedShortOf(true), 1);
}

TEST(UnsignedShortConversion, WhatIsNotFiniteIsZero)
{
    EXPECT_EQ(unsignedShortOf(std::numeric_limits<double>::infinity()), 0);
    EXPECT_EQ(unsignedShortOf(-std::numeric_limits<double>::infinity()), 0);
    EXPECT_EQ(unsignedShortOf(std::nan("")), 0);
    EXPECT_EQ(unsignedShortOf("1e400"), 0);
}

} // namespace
} // namespace panotra::preferences
