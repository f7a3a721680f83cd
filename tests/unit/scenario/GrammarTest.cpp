/// Which form a line takes, and what becomes of its arguments.
#include "simulator/scenario/Grammar.h"

#include "simulator/scenario/Forms.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

namespace panotra::sim {
namespace {

/// The one command of a scenario, `load` before it aside.
Command commandOf(std::string_view text)
{
    auto scenario = parseScenario(text);
    EXPECT_TRUE(scenario.mistakes.empty()) << text << ": " << scenario.mistakes.front().message;
    return std::move(scenario.commands.at(scenario.commands.size() - 1));
}

std::string_view syntaxOf(std::string_view text)
{
    return commandOf(text).form->syntax.text();
}

TEST(Grammar, FixedWordsChooseTheForm)
{
    EXPECT_EQ(syntaxOf("screen 375 667 2"), "screen W H SCALE");
    EXPECT_EQ(syntaxOf("screen reference 320 480"), "screen reference W H");
    EXPECT_EQ(syntaxOf("statusbar shown"), "statusbar hidden|shown");
    EXPECT_EQ(syntaxOf("statusbar center 1 2"), "statusbar center X Y");
    EXPECT_EQ(syntaxOf("load\nsound 5"), "sound TYPE");
    EXPECT_EQ(syntaxOf("load\nsound untyped"), "sound untyped");
    EXPECT_EQ(syntaxOf("load\ntouch up"), "touch up");
    EXPECT_EQ(syntaxOf("load\ntouch move 1 2"), "touch move X Y");
    EXPECT_EQ(syntaxOf("pref d k string 5"), "pref DOMAIN KEY string STRING");
}

TEST(Grammar, ArgumentsHaveTheKindsOfTheirPlaceholders)
{
    const auto frame = commandOf("load\nstatusbar-frame _UIStatusBar -1 .5 3e2 4");
    EXPECT_EQ(frame.arguments.text(0), "_UIStatusBar");
    EXPECT_EQ(frame.arguments.number(1), -1);
    EXPECT_EQ(frame.arguments.number(2), 0.5);
    EXPECT_EQ(frame.arguments.number(3), 300);
    EXPECT_EQ(commandOf("system Alarm 0.1").arguments.level(1), 0.1F);
    EXPECT_EQ(commandOf("mode -5").arguments.integer(0), -5);
    EXPECT_EQ(commandOf("darwin n 18446744073709551615").arguments.state(1), 18446744073709551615U);
    EXPECT_TRUE(commandOf("echo on").arguments.is(0, "on"));
}

TEST(Grammar, FixedWordsAreNoArguments)
{
    const auto screen = commandOf("screen reference 320 480");
    EXPECT_EQ(screen.arguments.number(0), 320);
    EXPECT_EQ(screen.arguments.number(1), 480);
}

TEST(Grammar, NilIsAbsentUnlessQuoted)
{
    EXPECT_EQ(commandOf("route nil").arguments.optionalText(0), std::nullopt);
    EXPECT_EQ(commandOf("route \"nil\"").arguments.optionalText(0), "nil");
    EXPECT_EQ(commandOf("load\nannounce nil nil nil").arguments.optionalLevel(2), std::nullopt);
    EXPECT_EQ(commandOf("load\nannounce a b 0.5").arguments.optionalLevel(2), 0.5F);
}

TEST(Grammar, QuotingMattersForNothingElse)
{
    EXPECT_EQ(commandOf("\"wait\" \"1.5\"").arguments.number(0), 1.5);
    EXPECT_TRUE(commandOf("\"echo\" \"off\"").arguments.is(0, "off"));
}

TEST(Grammar, CommandsKnowTheirLines)
{
    const auto scenario = parseScenario("# first\nwait 1 # a while\n\n  load\n");
    ASSERT_EQ(scenario.commands.size(), 2U);
    EXPECT_EQ(scenario.commands[0].line, 2U);
    EXPECT_EQ(scenario.commands[0].source, "wait 1 # a while");
    EXPECT_EQ(scenario.commands[1].line, 4U);
}

TEST(Grammar, AnEmptyScenarioIsNoMistake)
{
    EXPECT_TRUE(parseScenario("").commands.empty());
    EXPECT_TRUE(parseScenario("").mistakes.empty());
}

TEST(Forms, OfOneCommandStandTogetherAndShareTheirPhase)
{
    std::set<std::string_view> seen;
    const Form* before = nullptr;
    for (const auto& form : allForms()) {
        const auto command = form.syntax.command();
        if (before == nullptr || before->syntax.command() != command)
            EXPECT_TRUE(seen.insert(command).second) << command;
        else
            EXPECT_EQ(before->phase, form.phase) << command;
        before = &form;
    }
}

TEST(Forms, HaveExamplesOfTheirOwn)
{
    for (const auto& form : allForms()) {
        const bool isAfterLoad = form.phase == Phase::AfterLoad;
        const auto text = (isAfterLoad ? "load\n" : "") + std::string(form.example);
        const auto scenario = parseScenario(text);
        ASSERT_TRUE(scenario.mistakes.empty()) << form.example << ": " << scenario.mistakes.front().message;
        EXPECT_EQ(scenario.commands.back().form->syntax.text(), form.syntax.text()) << form.example;
        EXPECT_NE(form.meaning, "") << form.syntax.text();
    }
}

TEST(Forms, WordsInCapitalsArePlaceholders)
{
    for (const auto& form : allForms()) {
        for (const auto& term : form.syntax.terms()) {
            const bool isCapital = term.text.find_first_not_of("ABCDEFGHIJKLMNOPQRSTUVWXYZ") == term.text.npos;
            EXPECT_EQ(isCapital, term.placeholder != nullptr) << form.syntax.text();
        }
    }
}

} // namespace
} // namespace panotra::sim
