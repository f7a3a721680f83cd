/// Settings in the scenario language.
#include "simulator/window/SettingLines.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

namespace panotra::sim {
namespace {

using ::testing::ElementsAre;
using ::testing::StartsWith;

TEST(SettingLinesTest, EveryKindOfValueIsALine)
{
    EXPECT_EQ(lineOfSetting("a.b", "key", 5), "pref a.b key int 5");
    EXPECT_EQ(lineOfSetting("a.b", "key", 0.1), "pref a.b key float 0.1");
    EXPECT_EQ(lineOfSetting("a.b", "key", 1.0), "pref a.b key float 1.0");
    EXPECT_EQ(lineOfSetting("a.b", "key", true), "pref a.b key bool yes");
    EXPECT_EQ(lineOfSetting("a.b", "a key", "a \"b\" \\"), R"(pref a.b "a key" string "a \"b\" \\")");
    EXPECT_EQ(lineOfSetting("a.b", "nil", "nil"), R"(pref a.b "nil" string "nil")");
    EXPECT_EQ(lineOfSetting("a.b", "#", ""), R"(pref a.b "#" string "")");
}

TEST(SettingLinesTest, WhatNoLineCanHoldIsAComment)
{
    EXPECT_THAT(lineOfSetting("a.b", "key", UINT64_MAX), StartsWith("# "));
    EXPECT_EQ(lineOfSetting("a.b", "key", "1\n2"), R"(# beyond the scenario language: pref a.b key string "1\x0a2")");
}

TEST(SettingLinesTest, OnlyDifferencesAreTold)
{
    const Json before { { "a", { { "same", 1 }, { "gone", 1 }, { "other", 1 } } }, { "left", { { "k", 1 } } } };
    const Json after { { "a", { { "other", 1.0 }, { "same", 1 }, { "new", "x" } } } };
    EXPECT_THAT(linesOfChanges(before, after),
        ElementsAre("pref a other float 1.0", "pref a new string \"x\"", "unpref a gone", "unpref left k"));
    EXPECT_THAT(changedDomains(before, after), ElementsAre("a", "left"));
    EXPECT_TRUE(linesOfChanges(after, after).empty());
    EXPECT_TRUE(changedDomains(after, after).empty());
}

TEST(SettingLinesTest, OnlyTheMixersDomainsAreAnnounced)
{
    EXPECT_EQ(announcementOf("net.qorvath.panotra"), "net.qorvath.panotra.settingschanged");
    EXPECT_EQ(announcementOf("net.qorvath.brevane2"), "net.qorvath.brevane2.settingschanged");
    EXPECT_EQ(announcementOf("net.example"), std::nullopt);
}

} // namespace
} // namespace panotra::sim
