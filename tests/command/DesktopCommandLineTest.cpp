/// `panotra desktop` where there is nothing to be the mixer of.
#include "tests/command/CommandLine.h"

namespace panotra::testing {
namespace {

class DesktopCommandLine : public CommandLine {
protected:
    Ended desktop(const std::string& arguments) const
    {
        return runScript("XDG_RUNTIME_DIR=$PWD \"$panotra\" desktop " + arguments);
    }
};

TEST_F(DesktopCommandLine, WithoutOneThatRunsThereIsNoStatus)
{
    const Ended ended = desktop("--status");
    EXPECT_EQ(ended.status, 1);
    EXPECT_EQ(ended.output, "");
    EXPECT_EQ(ended.errors, "panotra: panotra desktop does not run\n");
}

TEST_F(DesktopCommandLine, WithoutASessionThereIsNone)
{
    const Ended ended = runScript("unset XDG_RUNTIME_DIR; \"$panotra\" desktop --headless --prefs .");
    EXPECT_EQ(ended.status, 3);
    EXPECT_EQ(ended.errors, "panotra: XDG_RUNTIME_DIR names no folder of this session\n");
}

TEST_F(DesktopCommandLine, ALimitIsAPercentage)
{
    for (const char* const limit : { "-1", "101", "loud", "''" }) {
        const Ended ended = desktop("--headless --limit " + std::string(limit));
        EXPECT_EQ(ended.status, 2) << limit;
        EXPECT_EQ(ended.errors.find('\n'), ended.errors.size() - 1) << ended.errors;
    }
}

TEST_F(DesktopCommandLine, APhoneWantsADisplay)
{
    EXPECT_EQ(desktop("--phone --headless").status, 2);
    const Ended ended = desktop("--phone --prefs preferences");
    EXPECT_EQ(ended.status, 3);
    EXPECT_NE(ended.errors.find("no display to open a window on: "), std::string::npos) << ended.errors;
}

TEST_F(DesktopCommandLine, AFolderThatCannotBeIsNamed)
{
    const Ended ended = desktop("--headless --prefs good/preferences");
    EXPECT_EQ(ended.status, 3);
    EXPECT_NE(ended.errors.find("good/preferences: Not a directory"), std::string::npos) << ended.errors;
}

TEST_F(DesktopCommandLine, WithoutItsProgramItSaysWhichIsMissing)
{
    const Ended ended = runScript("cp \"$panotra\" . && ./panotra desktop --status");
    EXPECT_EQ(ended.status, 3);
    EXPECT_NE(ended.errors.find("panotra-desktop: No such file or directory\n"), std::string::npos) << ended.errors;
}

TEST_F(DesktopCommandLine, WithoutTheProgramThatDrawsItSaysWhichIsMissingAndPlaysWhatTakesNoPicture)
{
    write("drawn", "load\nshot a\n");
    for (const char* const arguments :
        { "picture -o a.png", "film good -o a.gif", "window", "play drawn", "play - <good" }) {
        const Ended ended = runScript("cp \"$panotra\" . && ./panotra " + std::string(arguments));
        EXPECT_EQ(ended.status, 3) << arguments;
        EXPECT_NE(ended.errors.find("panotra-graphics: No such file or directory\n"), std::string::npos)
            << ended.errors;
    }
    EXPECT_EQ(runScript("cp \"$panotra\" . && ./panotra play good").status, 0);
}

TEST_F(DesktopCommandLine, WithoutAServerItWaitsEndsWellWhenToldToAndLeavesNothingBehind)
{
    const Ended ended = runScript("export XDG_RUNTIME_DIR=$PWD PULSE_SERVER=unix:$PWD/nobody; "
                                  "\"$panotra\" desktop --headless --prefs preferences & "
                                  "until \"$panotra\" desktop --status >said 2>/dev/null; do sleep 0.05; done; "
                                  "\"$panotra\" desktop; echo second $?; kill $!; wait $!; echo first $?; ls *.socket");
    EXPECT_EQ(ended.output, "second 1\nfirst 0\n");
    EXPECT_NE(read("said").find("Server: none\n"), std::string::npos);
    EXPECT_NE(ended.errors.find("panotra: no sound server can be reached: Connection refused; waiting for it\n"),
        std::string::npos)
        << ended.errors;
    EXPECT_NE(ended.errors.find("panotra: panotra desktop runs already, and shows nothing\n"), std::string::npos);
}

} // namespace
} // namespace panotra::testing
