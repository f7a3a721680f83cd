/// The grammar of numbers and their ranges.
#include "simulator/scenario/Numbers.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <limits>
#include <string>

namespace panotra::sim {
namespace {

TEST(Numbers, WhatTheGrammarAllowsIsRead)
{
    const std::pair<const char*, double> good[] = {
        { "0", 0 },
        { "007", 7 },
        { "+5", 5 },
        { "-2", -2 },
        { "1.", 1 },
        { ".5", 0.5 },
        { "-.25", -0.25 },
        { "1.5e3", 1500 },
        { "2E-2", 0.02 },
        { "1.e+1", 10 },
        { "0.1", 0.1 },
        { "1e308", 1e308 },
    };
    for (const auto& [text, value] : good)
        EXPECT_EQ(parseDouble(text), value) << text;
}

TEST(Numbers, WhatTheGrammarDoesNotAllowIsNone)
{
    for (const auto* text : { "", "+", "-", ".", "e5", "1e", "1e+", "1.5.2", "0x10", "inf", "nan", "1,5", " 1", "1 ",
             "--1", "+-1", "1e5.0", ".e1", "1f", "infinity", "1e 5", "\xC2\xBD" })
        EXPECT_EQ(parseDouble(text), std::nullopt) << '"' << text << '"';
}

TEST(Numbers, TooLargeIsNoneAndTooSmallIsZero)
{
    EXPECT_EQ(parseDouble("1e309"), std::nullopt);
    EXPECT_EQ(parseDouble("-1e309"), std::nullopt);
    EXPECT_EQ(parseDouble("1e99999999999999999999"), std::nullopt);
    EXPECT_EQ(parseDouble("1" + std::string(400, '0')), std::nullopt);
    EXPECT_EQ(parseDouble("1e-400"), 0.0);
    EXPECT_EQ(parseDouble("1e-99999999999999999999"), 0.0);
    EXPECT_EQ(parseDouble("0." + std::string(400, '0') + "1"), 0.0);
    EXPECT_EQ(parseDouble("1000e-400"), 0.0);
    EXPECT_EQ(parseDouble("0e999999"), 0.0);
    EXPECT_TRUE(std::signbit(parseDouble("-1e-400").value()));
    EXPECT_EQ(parseDouble("0." + std::string(400, '0') + "1e401"), 1.0);
}

TEST(Numbers, AFloatIsTheNearestOneToTheDecimal)
{
    EXPECT_EQ(parseFloat("0.1"), 0.1F);
    EXPECT_EQ(parseFloat("3.4028234663852886e38"), std::numeric_limits<float>::max());
    EXPECT_EQ(parseFloat("3.5e38"), std::nullopt);
    EXPECT_EQ(parseFloat("-1e39"), std::nullopt);
    EXPECT_EQ(parseFloat("1e-60"), 0.0F);
    // Rounding to a double first would land on the half-way point and end one float too low.
    EXPECT_EQ(parseFloat("1.00000017881393432617187499"), 1.00000011920928955078125F);
    EXPECT_EQ(parseFloat("1.00000017881393432617187501"), 1.0000002384185791015625F);
}

TEST(Numbers, IntegersHaveNothingButASignAndDigits)
{
    EXPECT_EQ(parseInteger<std::int64_t>("+12"), 12);
    EXPECT_EQ(parseInteger<std::int64_t>("-0012"), -12);
    EXPECT_EQ(parseInteger<std::int64_t>("500"), 500);
    EXPECT_EQ(parseInteger<std::int64_t>("000"), 0);
    for (const auto* text : { "", "-", "+", "1.0", "1e3", "0x1", " 1", "--1", "+-1", "1_000" })
        EXPECT_EQ(parseInteger<std::int64_t>(text), std::nullopt) << '"' << text << '"';
}

TEST(Numbers, IntegersKeepToTheirRange)
{
    EXPECT_EQ(parseInteger<std::int64_t>("9223372036854775807"), std::numeric_limits<std::int64_t>::max());
    EXPECT_EQ(parseInteger<std::int64_t>("-9223372036854775808"), std::numeric_limits<std::int64_t>::min());
    EXPECT_EQ(parseInteger<std::int64_t>("9223372036854775808"), std::nullopt);
    EXPECT_EQ(parseInteger<std::uint64_t>("18446744073709551615"), std::numeric_limits<std::uint64_t>::max());
    EXPECT_EQ(parseInteger<std::uint64_t>("18446744073709551616"), std::nullopt);
    EXPECT_EQ(parseInteger<std::uint64_t>("-1"), std::nullopt);
    EXPECT_EQ(parseInteger<std::uint64_t>("-0"), 0U);
    EXPECT_EQ(parseInteger<std::uint64_t>("+5"), 5U);
}

} // namespace
} // namespace panotra::sim
