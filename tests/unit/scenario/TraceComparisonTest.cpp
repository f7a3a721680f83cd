/// The comparison on which every scenario test rests.
#include "tests/support/TraceComparison.h"

#include <gtest/gtest.h>

namespace panotra::testing {
namespace {

constexpr const char* agreement = "they agree";

std::string differenceOf(std::string_view expected, std::string_view actual)
{
    return firstDifference(expected, actual).value_or(agreement);
}

TEST(TraceComparison, EqualTracesAgree)
{
    EXPECT_EQ(differenceOf("", ""), agreement);
    EXPECT_EQ(differenceOf("{\"t\": 0, \"event\": \"load\"}\n", "{\"t\":0.0,\"event\":\"load\"}\n"), agreement);
}

TEST(TraceComparison, TheOrderOfFieldsDoesNotMatter)
{
    EXPECT_EQ(differenceOf(R"({"event":"hit","x":1,"y":2})", R"({"y":2,"x":1,"event":"hit"})"), agreement);
}

TEST(TraceComparison, NumbersAgreeWithinAMillionthAbsoluteOrRelative)
{
    EXPECT_EQ(differenceOf(R"({"t":0})", R"({"t":0.000001})"), agreement);
    EXPECT_EQ(differenceOf(R"({"t":1000000})", R"({"t":1000000.9})"), agreement);
    EXPECT_EQ(differenceOf(R"({"event":"a","t":0})", R"({"event":"a","t":0.000002})"),
        "line 1 (a), t: expected 0, found 2e-06");
    EXPECT_NE(differenceOf(R"({"t":1000000})", R"({"t":1000002})"), agreement);
}

TEST(TraceComparison, KindsOfValuesAreNotMixed)
{
    for (const auto* other : { "0", "false", "\"\"", "[]", "{}" }) {
        EXPECT_NE(differenceOf(R"({"x":null})", std::string(R"({"x":)") + other + "}"), agreement) << other;
        EXPECT_NE(differenceOf(std::string(R"({"x":)") + other + "}", R"({"x":null})"), agreement) << other;
    }
    EXPECT_NE(differenceOf(R"({"x":1})", R"({"x":true})"), agreement);
    EXPECT_NE(differenceOf(R"({"x":1})", R"({"x":"1"})"), agreement);
}

TEST(TraceComparison, TheFirstDifferenceIsNamedByLineEventAndPath)
{
    EXPECT_EQ(differenceOf("{\"event\":\"a\"}\n{\"event\":\"state\",\"sliders\":{\"3\":{\"frame\":[1,2]}}}",
                  "{\"event\":\"a\"}\n{\"event\":\"state\",\"sliders\":{\"3\":{\"frame\":[1,3]}}}"),
        "line 2 (state), sliders.3.frame.1: expected 2, found 3");
}

TEST(TraceComparison, MissingAndAdditionalFieldsAreDifferences)
{
    EXPECT_EQ(differenceOf(R"({"event":"a","x":null})", R"({"event":"a"})"),
        "line 1 (a), x: expected null, found no such field");
    EXPECT_EQ(differenceOf(R"({"event":"a"})", R"({"event":"a","x":null})"),
        "line 1 (a), x: expected no such field, found null");
}

TEST(TraceComparison, ListsOfDifferentLengthsDiffer)
{
    EXPECT_EQ(differenceOf(R"({"event":"a","x":[1]})", R"({"event":"a","x":[1,2]})"),
        "line 1 (a), x: expected 1 elements, found 2");
}

TEST(TraceComparison, MissingAndAdditionalEventsAreDifferences)
{
    EXPECT_EQ(differenceOf("{\"event\":\"a\"}\n{\"event\":\"b\"}\n", "{\"event\":\"a\"}\n"),
        "line 2: expected {\"event\":\"b\"}, found the end of the trace");
    EXPECT_EQ(differenceOf("{\"event\":\"a\"}\n", "{\"event\":\"a\"}\n{\"event\":\"b\"}\n"),
        "line 2: expected the end of the trace, found {\"event\":\"b\"}");
}

TEST(TraceComparison, AnyPictureStandsForPng)
{
    constexpr auto expected = R"({"event":"answer","question":"icon","value":"PNG"})";
    EXPECT_EQ(differenceOf(expected, R"({"event":"answer","question":"icon","value":68})"), agreement);
    EXPECT_NE(differenceOf(expected, R"({"event":"answer","question":"icon","value":0})"), agreement);
    EXPECT_NE(differenceOf(expected, R"({"event":"answer","question":"icon","value":null})"), agreement);
    EXPECT_NE(differenceOf(expected, R"({"event":"answer","question":"icon"})"), agreement);
    EXPECT_NE(differenceOf(R"({"event":"answer","question":"title","value":"PNG"})",
                  R"({"event":"answer","question":"title","value":68})"),
        agreement);
}

TEST(TraceComparison, WhatIsNotJsonAgreesWithNothing)
{
    EXPECT_EQ(differenceOf(R"({"event":"a"})", "nonsense"), "line 1: found a line that is not JSON");
    EXPECT_EQ(differenceOf("nonsense", "nonsense"), "line 1: found a line that is not JSON");
    EXPECT_EQ(differenceOf("nonsense", R"({"event":"a"})"), "line 1: expected a line that is not JSON");
    EXPECT_NE(differenceOf("[1]", "[1]"), agreement);
}

} // namespace
} // namespace panotra::testing
