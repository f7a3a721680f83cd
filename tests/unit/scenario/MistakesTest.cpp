/// What is said about every kind of mistake: a table of scenarios and the lines that they earn.
#include "simulator/scenario/Grammar.h"
#include "tests/support/KnownFacts.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <vector>

namespace panotra::sim {
namespace {

using ::testing::ElementsAre;

/// "LINE: message" for every mistake of a scenario.
std::vector<std::string> mistakesOf(const std::string& text)
{
    std::vector<std::string> lines;
    for (const auto& mistake : parseScenario(text).mistakes)
        lines.push_back(std::to_string(mistake.line) + ": " + mistake.message);
    return lines;
}

struct Case {
    std::string scenario;
    std::vector<std::string> mistakes;
};

constexpr const char* wholeNumber = "a whole number of 64 bits";
const std::string numberOfSlot = "a whole number from 0 to " + std::to_string(testing::knownSlotCount - 1);

void expectMistakes(std::initializer_list<Case> cases)
{
    for (const auto& [scenario, mistakes] : cases)
        EXPECT_EQ(mistakesOf(scenario), mistakes) << scenario;
}

TEST(Mistakes, NameAnUnknownCommandAndTheNearestKnownOne)
{
    expectMistakes({ { "frobnicate", { "1: found \"frobnicate\", expected a command" } },
        { "lauch", { "1: found \"lauch\", expected a command (did you mean launch?)" } },
        { "nil", { "1: found \"nil\", expected a command" } },
        { "Load", { "1: found \"Load\", expected a command (did you mean load?)" } },
        { "\"\"", { "1: found \"\", expected a command" } },
        { "\x1b[31mload", { "1: found \"\\u001b[31mload\", expected a command" } } });
}

TEST(Mistakes, CountTheWordsAndShowTheForms)
{
    expectMistakes({ { "process", { "1: found nothing after process, expected process BUNDLE" } },
        { "process a b", { "1: found 2 words after process, expected process BUNDLE" } },
        { "load now", { "1: found 1 word after load, expected load" } },
        { "screen", { "1: found nothing after screen, expected screen W H SCALE or screen reference W H" } },
        { "screen reference 1", { "1: found 2 words after screen, expected screen reference W H" } },
        { "screen 1 2", { "1: found 2 words after screen, expected screen W H SCALE" } },
        { "statusbar center 1", { "1: found 2 words after statusbar, expected statusbar center X Y" } },
        { "statusbar hidden now", { "1: found 2 words after statusbar, expected statusbar hidden|shown" } },
        { "pref d k int", { "1: found 3 words after pref, expected pref DOMAIN KEY int INTEGER" } },
        { "load\ntouch up 1 2", { "2: found 3 words after touch, expected touch up" } },
        { "load\nannounce a",
            { "2: found 1 word after announce, expected announce CATEGORY|nil REASON|nil LEVEL|nil" } } });
}

TEST(Mistakes, NameTheWordsOfAChoice)
{
    expectMistakes({ { "echo loud", { "1: found \"loud\", expected on or off" } },
        { "hold left", { "1: found \"left\", expected up or down" } },
        { "statusbar gone", { "1: found \"gone\", expected hidden, shown or center" } },
        { "pref d k flot 1", { "1: found \"flot\", expected int, float, bool or string" } },
        { "pref d k bool true", { "1: found \"true\", expected yes or no" } },
        { "load\npress nil", { "2: found \"nil\", expected up or down" } },
        { "load\nreorient-hud 1", { "2: found \"1\", expected yes or no" } },
        { "load\nstatusbar-frame Bar 0 0 1 1", { "2: found \"Bar\", expected UIStatusBar or _UIStatusBar" } },
        { "load\npan 99 pulled x",
            { "2: found \"99\" for SLOT, expected " + numberOfSlot,
                "2: found \"pulled\", expected began, changed, ended, cancelled or failed",
                "2: found \"x\" for X, expected a number" } } });
}

TEST(Mistakes, TellTheRangeOfANumber)
{
    expectMistakes({ { "screen 0 -1 2",
                         { "1: found \"0\" for W, expected a number above 0 or reference",
                             "1: found \"-1\" for H, expected a number above 0" } },
        { "screen wide 1 1", { "1: found \"wide\" for W, expected a number above 0 or reference" } },
        { "screen 1 1 1e-400", { "1: found \"1e-400\" for SCALE, expected a number above 0" } },
        { "wait -1", { "1: found \"-1\" for SECONDS, expected a number not below 0" } },
        { "wait 1e999", { "1: found \"1e999\" for SECONDS, expected a number not below 0" } },
        { "rotation-duration -0.1", { "1: found \"-0.1\" for SECONDS, expected a number not below 0" } },
        { "system Alarm 1e39", { "1: found \"1e39\" for LEVEL, expected a number that a 32-bit float can hold" } },
        { "mode 1.0", { std::string("1: found \"1.0\" for N, expected ") + wholeNumber } },
        { "orientation 9223372036854775808",
            { std::string("1: found \"9223372036854775808\" for N, expected ") + wholeNumber } },
        { "darwin n -1", { "1: found \"-1\" for STATE, expected a whole number of 64 bits without sign" } },
        { "darwin n 18446744073709551616",
            { "1: found \"18446744073709551616\" for STATE, expected a whole number of 64 bits without sign" } },
        { "pref d k int 1e3", { std::string("1: found \"1e3\" for INTEGER, expected ") + wholeNumber } },
        { "pref d k float inf", { "1: found \"inf\" for NUMBER, expected a number" } },
        { "load\npan -1 began 0", { "2: found \"-1\" for SLOT, expected " + numberOfSlot } },
        { "load\nsound loud", { std::string("2: found \"loud\" for TYPE, expected ") + wholeNumber + " or untyped" } },
        { "load\nannounce a b c",
            { "2: found \"c\" for LEVEL, expected a number that a 32-bit float can hold or nil" } },
        { "load\nstatusbar-frame UIStatusBar 0 0 0 1", { "2: found \"0\" for W, expected a number above 0" } } });
}

TEST(Mistakes, NameNilWhereNothingMayBeAbsent)
{
    expectMistakes({ { "category nil", { "1: found nil for NAME, expected a name" } },
        { "category \"nil\"\nroute nil\nexpect controller nil", {} },
        { "pref d k string nil", { "1: found nil for STRING, expected a string" } },
        { "load\nannounce nil nil nil", {} },
        { "load\nset-volume nil 1", { "2: found nil for CATEGORY, expected a category" } },
        { "wait nil", { "1: found nil for SECONDS, expected a number not below 0" } },
        { "expect nil 1", { "1: found nil for PATH, expected a path into the state" } } });
}

TEST(Mistakes, NamePicturesOutsideTheirFolder)
{
    const auto refused = [](const std::string& name) {
        return std::vector<std::string> { "1: found \"" + name
            + "\" for PICTURE, expected a name in the folder of pictures or below it, without .." };
    };
    expectMistakes({ { "shot ../x", refused("../x") }, { "shot /tmp/x", refused("/tmp/x") },
        { "shot a/../b", refused("a/../b") }, { "shot ..", refused("..") }, { "shot a/..", refused("a/..") },
        { "shot //x", refused("//x") }, { "shot a/b/c\nshot ..x\nshot x..\nshot a...b/c\nshot ./x", {} } });
}

TEST(Mistakes, TellWhereInAScenarioACommandMayStand)
{
    expectMistakes({ { "launch\nload", { "1: found launch before load, expected it after load" } },
        { "load\n\nprocess a", { "3: found process after load (line 1), expected it before load" } },
        { "load\nload", { "2: found a second load, expected only the first (line 1)" } },
        { "load\nload\nload",
            { "2: found a second load, expected only the first (line 1)",
                "3: found a second load, expected only the first (line 1)" } },
        { "wait 1\nstate\ntree\nshot a\nexpect running 0\nroute nil\nload\nroute nil", {} },
        { "launch\npress up",
            { "1: found launch before load, expected it after load",
                "2: found press before load, expected it after load" } },
        { "press sideways\nload",
            { "1: found press before load, expected it after load", "1: found \"sideways\", expected up or down" } },
        // A `load` with something wrong about it does not make mistakes of all that follows.
        { "load now\nlaunch", { "1: found 1 word after load, expected load" } },
        { "load \"\nlaunch", { "1: found a quote that is not closed, expected \" before the end of the line" } } });
}

TEST(Mistakes, OfAFileComeAllAtOnceInTheOrderOfLines)
{
    EXPECT_THAT(mistakesOf("echo maybe\nload\nroute \"\nscreen 1 1 1\nwait \xFF\nwait x"),
        ElementsAre("1: found \"maybe\", expected on or off",
            "3: found a quote that is not closed, expected \" before the end of the line",
            "4: found screen after load (line 2), expected it before load",
            "5: found the byte 0xff at column 6, expected UTF-8 text without NUL",
            "6: found \"x\" for SECONDS, expected a number not below 0"));
}

} // namespace
} // namespace panotra::sim
