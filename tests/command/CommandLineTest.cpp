/// `panotra` as a person runs it: options, exit statuses, and one line for what goes wrong.
#include "tests/command/CommandLine.h"
#include "simulator/text/Columns.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>
#include <string>

namespace {

using ::testing::ContainsRegex;
using ::testing::HasSubstr;
using ::testing::StartsWith;

using panotra::testing::CommandLine;

TEST_F(CommandLine, AScenarioThatGoesWellEndsWithZeroAndSaysNothingOfErrors)
{
    const auto ended = run("play good --format json");
    EXPECT_EQ(ended.status, 0);
    EXPECT_THAT(ended.output, StartsWith("{\"t\":0.0,\"event\":\"hook\""));
    EXPECT_EQ(ended.errors, "");
}

TEST_F(CommandLine, TextInWordsIsTheDefault)
{
    EXPECT_THAT(run("play good").output, HasSubstr("\nlaunch\n  0.000  home screen launched, "));
    EXPECT_EQ(run("play good").output, run("play good --format text").output);
}

TEST_F(CommandLine, VerboseTextTellsEveryEvent)
{
    EXPECT_THAT(run("play good --verbose").output, HasSubstr("\nlaunch\n     0.000  launched\n"));
}

TEST_F(CommandLine, OnlyTheEventsAskedForAreToldOfWithTheCommandsThatBroughtThemAbout)
{
    write("two", "# First.\nload\n# Then.\nlaunch # up\nroute nil\n");
    EXPECT_EQ(run("play two --only launched,shot").output, "# Then.\nlaunch # up\n  0.000  home screen launched\n");
    EXPECT_EQ(run("play two --only launched --verbose").output, "# Then.\nlaunch # up\n     0.000  launched\n");
    const auto ended = run("play two --only lunched");
    EXPECT_EQ(ended.status, 2);
    EXPECT_EQ(ended.output, "");
    EXPECT_EQ(
        ended.errors, "panotra: --only: found \"lunched\", expected the name of an event (did you mean launched?)\n");
}

TEST_F(CommandLine, AProgramGetsAllEvents)
{
    for (const auto* option : { "--verbose", "--only launched" }) {
        const auto ended = run(std::string("play good --format json ") + option);
        EXPECT_EQ(ended.status, 2) << option;
        EXPECT_EQ(ended.output, "") << option;
        EXPECT_EQ(ended.errors, "panotra: --verbose and --only are for text: JSON holds all\n") << option;
    }
}

TEST_F(CommandLine, NoLineIsWiderThanTheTerminal)
{
    write("wide",
        "# Eine Bemerkung über die Lautstärke, die weit über jeden Rand hinausreicht, wenn niemand sie umbricht.\n"
        "pref net.qorvath.panotra replaceHUD bool yes\npref net.example.音量音量音量音量音量音量音量音量音量音量 ключ "
        "string "
        "\"значение\"\nload\nlaunch\npress up\nwait 1 # später\nset-volume "
        "音量音量音量音量音量音量音量音量音量音量音量音量 0.25\nstate\ntree\nwait 9\n");
    for (const std::size_t columns : { 40U, 80U, 120U }) {
        const auto ended = runScript("COLUMNS=" + std::to_string(columns) + " \"$panotra\" play wide");
        EXPECT_EQ(ended.status, 0);
        std::istringstream lines(ended.output);
        std::size_t widest = 0;
        for (std::string line; std::getline(lines, line);)
            widest = std::max(widest, panotra::columnsOf(line));
        EXPECT_LE(widest, columns);
        EXPECT_GE(widest, columns - 10) << "the room is used";
    }
}

TEST_F(CommandLine, ATerminalGetsItsWidthAndColoursUnlessTheyAreNotWanted)
{
    const auto onTerminal = [this](const std::string& environment) {
        write("script", "stty cols 40; " + environment + " \"$panotra\" play good");
        return runScript("export panotra; TERM=xterm COLUMNS=200 script -qec \"sh script\" /dev/null").output;
    };
    const auto text = onTerminal("NO_COLOR=");
    EXPECT_THAT(text, HasSubstr("\x1b[1mlaunch\x1b[0m"));
    EXPECT_THAT(text, HasSubstr("launched, 3\r\n"));
    EXPECT_THAT(onTerminal("NO_COLOR=1"), ::testing::Not(HasSubstr("\x1b")));
    EXPECT_THAT(onTerminal("TERM=dumb"), ::testing::Not(HasSubstr("\x1b")));
}

TEST_F(CommandLine, ADashIsStandardInput)
{
    EXPECT_EQ(run("play - <good").output, run("play good").output);
    const auto ended = run("play - <wrong");
    EXPECT_EQ(ended.status, 2);
    EXPECT_THAT(ended.errors, StartsWith("-:1: found \"lunch\""));
}

TEST_F(CommandLine, AByteOrderMarkIsSkipped)
{
    write("marked", "\xEF\xBB\xBFload\nlunch\n");
    EXPECT_EQ(run("play marked").errors, "marked:2: found \"lunch\", expected a command (did you mean launch?)\n");
    write("marked", "\xEF\xBB\xBF# A comment.\nload\n");
    EXPECT_THAT(run("play marked").output, StartsWith("# A comment.\nload\n"));
    write("twice", "\xEF\xBB\xBF\xEF\xBB\xBFload\n");
    EXPECT_EQ(run("play twice").status, 2);
}

TEST_F(CommandLine, OneCommandIsGivenAtATime)
{
    const auto ended = run("play failing prefs list net.qorvath.panotra");
    EXPECT_EQ(ended.status, 2);
    EXPECT_EQ(ended.output, "");
    EXPECT_THAT(ended.errors, StartsWith("panotra: "));
}

TEST_F(CommandLine, FailedExpectationsAreAllReportedAndEndWithOne)
{
    const auto ended = run("play failing");
    EXPECT_EQ(ended.status, 1);
    EXPECT_EQ(ended.errors,
        "failing:3: found 0.875 at globals.scale, expected 1\n"
        "failing:5: found 0 at running, expected 7\n");
    EXPECT_THAT(ended.output, HasSubstr("launched"));
}

TEST_F(CommandLine, MistakesAreAllReportedBeforeAnythingRuns)
{
    write("kept", "what was there\n");
    const auto ended = run("play wrong --trace kept --prefs unborn");
    EXPECT_EQ(ended.status, 2);
    EXPECT_EQ(ended.output, "");
    EXPECT_EQ(ended.errors,
        "wrong:1: found \"lunch\", expected a command (did you mean launch?)\n"
        "wrong:3: found screen after load (line 2), expected it before load\n"
        "wrong:4: found \"-1\" for SECONDS, expected a number not below 0\n");
    EXPECT_EQ(read("kept"), "what was there\n");
    EXPECT_FALSE(exists(folder / "unborn"));
}

TEST_F(CommandLine, TheTraceMayGoToAFile)
{
    const auto ended = run("play good --format json --trace out");
    EXPECT_EQ(ended.status, 0);
    EXPECT_EQ(ended.output, "");
    EXPECT_EQ(read("out"), run("play good --format json").output);
}

TEST_F(CommandLine, ATraceDoesNotReplaceItsScenario)
{
    EXPECT_EQ(run("play good --trace ./good").status, 2);
    EXPECT_THAT(read("good"), StartsWith("load\n"));
}

TEST_F(CommandLine, ATraceDoesNotReplaceItsScenarioThroughALinkOrAStream)
{
    runScript("ln -s good soft; ln good hard; mkdir folder; ln -s ../good folder/up");
    for (const auto* arguments :
        { "play good --trace soft", "play soft --trace good", "play good --trace hard", "play good --trace folder/up",
            "play good --trace folder/../good", "play - --trace good <good", "play good >>good" }) {
        const auto ended = run(arguments);
        EXPECT_EQ(ended.status, 2) << arguments;
        EXPECT_THAT(ended.errors, ContainsRegex("^panotra: [^\n]* would overwrite the scenario\n$")) << arguments;
        EXPECT_EQ(read("good"), "load\nlaunch\nexpect globals.scale 0.875\n") << arguments;
    }
    EXPECT_EQ(run("play good --trace good.jsonl").status, 0);
    EXPECT_EQ(run("play good --trace /dev/null </dev/null").status, 0);
    EXPECT_EQ(runScript("cat good | \"$panotra\" play - | cat").status, 0);
}

TEST_F(CommandLine, NothingIsWrittenAmongThePreferences)
{
    ASSERT_EQ(run("prefs set --prefs p a.b key int 1").status, 0);
    const auto before = read("p/a.b.plist");
    runScript("ln p/a.b.plist hard; ln -s p/new.plist soft; cp good p/good.plist");
    for (const auto* arguments : { "play good --prefs p --trace p/a.b.plist", "play good --prefs p --trace p/new.plist",
             "play good --prefs ./p --trace hard", "play good --prefs p --trace soft",
             "play good --prefs p --trace p/.a.b.lock", "play p/good.plist --prefs p" }) {
        const auto ended = run(arguments);
        EXPECT_EQ(ended.status, 2) << arguments;
        EXPECT_THAT(ended.errors, ContainsRegex("^panotra: [^\n]* file of the preferences in [./]*p\n$")) << arguments;
        EXPECT_EQ(read("p/a.b.plist"), before) << arguments;
    }
    EXPECT_FALSE(exists(folder / "p/new.plist"));
    EXPECT_EQ(runScript("rm p/good.plist; \"$panotra\" play good --prefs p --trace p/trace.jsonl").status, 0);
}

TEST_F(CommandLine, FilesThatCannotBeReadEndWithThreeAndOneLine)
{
    EXPECT_EQ(run("play missing").errors, "panotra: missing: No such file or directory\n");
    EXPECT_EQ(run("play .").errors, "panotra: .: Is a directory\n");
    EXPECT_EQ(run("play good/x").errors, "panotra: good/x: Not a directory\n");
    EXPECT_EQ(run("play ''").errors, "panotra: : No such file or directory\n");
    EXPECT_EQ(run("play - <.").errors, "panotra: standard input: Is a directory\n");
    EXPECT_EQ(run("play - <&-").errors, "panotra: standard input: Bad file descriptor\n");
    for (const auto* arguments : { "missing", ".", "good/x", "''", "- <.", "- <&-" })
        EXPECT_EQ(run(std::string("play ") + arguments).status, 3) << arguments;
}

TEST_F(CommandLine, PlacesThatCannotBeWrittenEndWithThreeAndOneLine)
{
    EXPECT_EQ(run("play good --trace no/such/place").errors, "panotra: no/such/place: there is no folder no/such\n");
    EXPECT_EQ(run("play good --trace .").errors, "panotra: .: Is a directory\n");
    EXPECT_EQ(run("play good --trace /dev/full").errors, "panotra: /dev/full: No space left on device\n");
    EXPECT_EQ(run("play good >/dev/full").errors, "panotra: standard output: No space left on device\n");
    EXPECT_EQ(run("play good --prefs good").errors, "panotra: good: Not a directory\n");
    for (const auto* arguments :
        { "--trace no/such/place", "--trace .", "--trace /dev/full", ">/dev/full", "--prefs good", ">&-" })
        EXPECT_EQ(run(std::string("play good ") + arguments).status, 3) << arguments;
}

TEST_F(CommandLine, AReaderThatGoesAwayEndsWritingQuietly)
{
    // More than a pipe holds, so that writing goes on when the reader is gone for certain.
    std::string states;
    for (int count = 0; count < 1000; ++count)
        states += "state\n";
    write("long", states);
    const auto ended = runScript("{ \"$panotra\" play long --format json; echo $? >status; } | :; cat status");
    EXPECT_EQ(ended.output, "3\n");
    EXPECT_EQ(ended.errors, "");
    EXPECT_EQ(runScript("{ sleep 0.1; \"$panotra\" play --commands; } | :").errors, "");
}

TEST_F(CommandLine, AClosedStandardOutputHarmsNoOtherFile)
{
    write("loud", "load\nlaunch\nset-volume Ringtone 0.25\npref d k int 1\n");
    EXPECT_EQ(run("play loud --format json --prefs prefs >&-").status, 3);
    EXPECT_THAT(read("prefs/d.plist"), ::testing::Not(HasSubstr("event")));
}

TEST_F(CommandLine, PreferencesAreKeptInTheFolderAndReadBackFromIt)
{
    write("set", "pref net.example.domain key float 0.25\n");
    write("get", "expect prefs.net.example.domain.key 0.25\n");
    EXPECT_EQ(run("play set --prefs a/new/folder").status, 0);
    EXPECT_EQ(run("play get --prefs a/new/folder").status, 0);
    EXPECT_EQ(run("play get").status, 1);
}

TEST_F(CommandLine, AWrongCommandLineEndsWithTwoAndOneLine)
{
    for (const auto* arguments : { "", "frobnicate", "play", "play good good", "play good --format xml",
             "play good --bogus", "play good --trace", "--prefs . play good", "play good --prefs a --prefs b" }) {
        const auto ended = run(arguments);
        EXPECT_EQ(ended.status, 2) << arguments;
        EXPECT_EQ(ended.output, "") << arguments;
        EXPECT_THAT(ended.errors, ContainsRegex("^panotra: [^\n]+\n$")) << arguments;
    }
}

TEST_F(CommandLine, MisspeltOptionsAndCommandsAreToldTheNearestRightOne)
{
    const std::pair<const char*, const char*> cases[] = {
        { "paly good", "found \"paly\", expected a command (did you mean play?)" },
        { "pref list a.b", "found \"pref\", expected a command (did you mean prefs?)" },
        { "Window", "found \"Window\", expected a command (did you mean window?)" },
        { "--versoin", "found \"--versoin\", expected an option of panotra (did you mean --version?)" },
        { "play good --traec out", "found \"--traec\", expected an option of panotra play (did you mean --trace?)" },
        { "play --format=json --shot=x good",
            "found \"--shot=x\", expected an option of panotra play (did you mean --shots?)" },
        { "picture --sytle 1", "found \"--sytle\", expected an option of panotra picture (did you mean --style?)" },
        { "frobnicate", "found \"frobnicate\", expected a command (panotra --help tells more)" },
        { "play good better", "found \"better\", expected no more words (panotra --help tells more)" },
        { "play good $(printf -- '--tr\\033ce')",
            "found \"--tr\\u001bce\", expected an option of panotra play (did you mean --trace?)" },
    };
    for (const auto& [arguments, mistake] : cases) {
        const auto ended = run(arguments);
        EXPECT_EQ(ended.status, 2) << arguments;
        EXPECT_EQ(ended.output, "") << arguments;
        EXPECT_EQ(ended.errors, std::string("panotra: ") + mistake + '\n') << arguments;
    }
}

TEST_F(CommandLine, TheCommandsOfTheLanguageGoToStandardOutput)
{
    const auto ended = run("play --commands");
    EXPECT_EQ(ended.status, 0);
    EXPECT_EQ(ended.errors, "");
    EXPECT_THAT(ended.output, HasSubstr("\n  press up|down "));
    EXPECT_THAT(ended.output, HasSubstr("\nBefore load:\n  process BUNDLE "));
    EXPECT_EQ(run("play --commands >/dev/full").status, 3);
}

TEST_F(CommandLine, HelpAndVersionGoToStandardOutput)
{
    for (const auto* arguments : { "--help", "-h", "play --help", "play -h", "prefs -h", "prefs set a.b -h" }) {
        const auto ended = run(arguments);
        EXPECT_EQ(ended.status, 0) << arguments;
        EXPECT_THAT(ended.output, HasSubstr("Usage: panotra")) << arguments;
        EXPECT_EQ(ended.errors, "") << arguments;
    }
    EXPECT_THAT(run("play --help").output, HasSubstr("Exit status"));
    const auto ended = run("--version");
    EXPECT_EQ(ended.status, 0);
    EXPECT_THAT(ended.output, ContainsRegex("^panotra [0-9]+\\.[0-9]+\\.[0-9]+\n$"));
}

TEST_F(CommandLine, AFileNameCannotDriveTheTerminal)
{
    EXPECT_THAT(run("play $(printf 'a\\033[31m')").errors, StartsWith("panotra: a\\x1b[31m: "));
}

} // namespace
