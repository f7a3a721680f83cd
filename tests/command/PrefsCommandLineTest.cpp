/// `panotra prefs` as a person or another process runs it.
#include "tests/command/CommandLine.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

namespace {

using ::testing::ContainsRegex;
using ::testing::HasSubstr;

using PrefsCommandLine = panotra::testing::CommandLine;

TEST_F(PrefsCommandLine, WhatIsSetIsGotAndListedAndGoneWhenItIsUnset)
{
    EXPECT_EQ(run("prefs set --prefs p net.example.domain scale float -1.25").status, 0);
    EXPECT_EQ(run("prefs set --prefs p net.example.domain name string 'two words'").status, 0);
    EXPECT_EQ(run("prefs get --prefs p net.example.domain scale").output, "-1.25\n");
    EXPECT_EQ(run("prefs list --prefs p net.example.domain").output, "scale float -1.25\nname string \"two words\"\n");
    EXPECT_EQ(run("prefs unset --prefs p net.example.domain scale").status, 0);
    EXPECT_EQ(run("prefs list --prefs p net.example.domain").output, "name string \"two words\"\n");
}

TEST_F(PrefsCommandLine, AScenarioReadsWhatWasSet)
{
    write("get", "load\nlaunch\nexpect globals.mixerSkin 3\n");
    EXPECT_EQ(run("play get --prefs p").status, 1);
    EXPECT_EQ(run("prefs set --prefs p net.qorvath.panotra mixerSkin int 3").status, 0);
    EXPECT_EQ(run("play get --prefs p").status, 0);
}

TEST_F(PrefsCommandLine, WhatTheMixerDoesNotKnowIsWarnedOfAndStored)
{
    const auto ended = run("prefs set --prefs p net.qorvath.panotra activeStile int 1");
    EXPECT_EQ(ended.status, 0);
    EXPECT_EQ(ended.errors,
        "panotra: net.qorvath.panotra has no key \"activeStile\" (did you mean activeStyle?); stored all the same\n");
    EXPECT_EQ(run("prefs get --prefs p net.qorvath.panotra activeStile").output, "1\n");
}

TEST_F(PrefsCommandLine, WithoutAFolderThePersonsOwnIsTaken)
{
    EXPECT_EQ(runScript("XDG_DATA_HOME=\"$PWD/data\" \"$panotra\" prefs set a.b key bool yes").status, 0);
    EXPECT_TRUE(exists(folder / "data/panotra/preferences/a.b.plist"));
    EXPECT_EQ(runScript("env -u XDG_DATA_HOME HOME=\"$PWD\" \"$panotra\" prefs set a.b key bool yes").status, 0);
    EXPECT_TRUE(exists(folder / ".local/share/panotra/preferences/a.b.plist"));
    const auto ended = runScript("env -u XDG_DATA_HOME -u HOME \"$panotra\" prefs list a.b");
    EXPECT_EQ(ended.status, 3);
    EXPECT_THAT(ended.errors, ContainsRegex("^panotra: [^\n]+\n$"));
}

TEST_F(PrefsCommandLine, ADamagedFileIsPutAsideAndEndsSettingAndPlayingWithThree)
{
    std::filesystem::create_directory(folder / "p");
    write("play", "load\nlaunch\n");
    for (const auto* command : { "prefs set --prefs p net.qorvath.panotra scale float 1", "play play --prefs p" }) {
        write("p/net.qorvath.panotra.plist", "garbage");
        const auto ended = run(command);
        EXPECT_EQ(ended.status, 3) << command;
        EXPECT_THAT(ended.errors, ContainsRegex("^panotra: [^\n]+; set aside as [^\n]+\n$")) << command;
        EXPECT_EQ(run(command).status, 0) << command;
    }
    EXPECT_EQ(run("prefs get --prefs p net.qorvath.panotra scale").status, 1);
    EXPECT_EQ(read("p/net.qorvath.panotra.plist.unreadable-2"), "garbage");
}

TEST_F(PrefsCommandLine, AnAbsentKeyEndsWithOne)
{
    for (const auto* action : { "get", "unset" }) {
        const auto ended = run(std::string("prefs ") + action + " --prefs p a.b key");
        EXPECT_EQ(ended.status, 1) << action;
        EXPECT_EQ(ended.output, "") << action;
        EXPECT_EQ(ended.errors, "panotra: no key \"key\" in a.b\n") << action;
    }
}

TEST_F(PrefsCommandLine, WrongWordsEndWithTwoAndOneLine)
{
    for (const auto* words : { "", "frobnicate a.b", "list", "get a.b", "list a.b key", "set a.b key",
             "set a.b key int", "set a.b key int x", "set a.b key colour red", "set a.b key string -hello",
             "set a.b key int 1 more", "list ../a.b" }) {
        const auto ended = run(std::string("prefs --prefs p ") + words);
        EXPECT_EQ(ended.status, 2) << words;
        EXPECT_EQ(ended.output, "") << words;
        EXPECT_THAT(ended.errors, ContainsRegex("^panotra( prefs)?: [^\n]+\n$")) << words;
    }
    EXPECT_FALSE(exists(folder / "p"));
}

TEST_F(PrefsCommandLine, AValueMayBeginWithAMinusSign)
{
    EXPECT_EQ(run("prefs set --prefs p a.b number int -5").status, 0);
    EXPECT_EQ(run("prefs get --prefs p a.b number").output, "-5\n");
    EXPECT_EQ(run("prefs set --prefs p a.b text string -- -hello").status, 0);
    EXPECT_EQ(run("prefs get --prefs p a.b text").output, "-hello\n");
}

TEST_F(PrefsCommandLine, FilesThatFailEndWithThreeAndOneLine)
{
    write("file", "no folder\n");
    for (const auto* script : { "prefs set --prefs file a.b key int 1", "prefs set --prefs /proc a.b key int 1" }) {
        const auto ended = run(script);
        EXPECT_EQ(ended.status, 3) << script;
        EXPECT_THAT(ended.errors, ContainsRegex("^panotra: [^\n]+\n$")) << script;
    }
    ASSERT_EQ(run("prefs set --prefs p a.b key int 1").status, 0);
    const auto ended = run("prefs get --prefs p a.b key >/dev/full");
    EXPECT_EQ(ended.status, 3);
    EXPECT_EQ(ended.errors, "panotra: standard output could not be written\n");
}

TEST_F(PrefsCommandLine, HelpTellsTheStatuses)
{
    const auto ended = run("prefs --help");
    EXPECT_EQ(ended.status, 0);
    EXPECT_THAT(ended.output, HasSubstr("Exit status"));
}

} // namespace
