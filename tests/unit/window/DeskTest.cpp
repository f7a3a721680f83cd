/// What the window does for a person: files that never overwrite another, frames one by one.
#include "simulator/window/Desk.h"
#include "tests/unit/window/SessionFixture.h"

#include <fstream>
#include <iterator>
#include <set>

namespace panotra::sim {
namespace {

using namespace std::chrono_literals;

using ::testing::ElementsAre;
using ::testing::EndsWith;
using ::testing::HasSubstr;

class DeskTest : public testing::SessionFixture {
protected:
    Desk& open()
    {
        start();
        return desk.emplace(*session,
            Desk::Means { .folder = folder.path(),
                .takePicture = [this](const std::string& path) -> std::optional<std::string> {
                    if (!pictureFailure.empty())
                        return pictureFailure;
                    std::ofstream(path) << "a picture";
                    return std::nullopt;
                },
                .tell = [this](const std::string& message) { told += message + '\n'; },
                .complain =
                    [this](const std::string& message) {
                        complaints += message + '\n';
                    } });
    }
    static std::string contentOf(const std::filesystem::path& path)
    {
        std::ifstream file(path);
        return { std::istreambuf_iterator<char>(file), {} };
    }
    std::set<std::string> files() const
    {
        std::set<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(folder.path())) {
            if (entry.path().filename().string().starts_with("panotra-"))
                names.insert(entry.path().filename().string());
        }
        return names;
    }

    std::string told;
    std::string pictureFailure;
    std::optional<Desk> desk; ///< ends before the session does
};

TEST_F(DeskTest, APictureTakesTheFirstNameThatIsFree)
{
    open();
    std::ofstream(folder / "panotra-1.png") << "of somebody else";
    std::filesystem::create_symlink("nowhere", folder / "panotra-2.png");
    desk->perform(WindowAct::Picture);
    EXPECT_EQ(contentOf(folder / "panotra-1.png"), "of somebody else");
    EXPECT_EQ(contentOf(folder / "panotra-3.png"), "a picture");
    EXPECT_EQ(told, "picture " + (folder / "panotra-3.png").string() + '\n');
    EXPECT_THAT(desk->notice()->text, EndsWith("panotra-3.png"));
}

TEST_F(DeskTest, APictureThatFailsLeavesNoFileAndSaysWhy)
{
    open();
    pictureFailure = "no room";
    desk->perform(WindowAct::Picture);
    EXPECT_THAT(files(), ElementsAre());
    EXPECT_EQ(complaints, (folder / "panotra-1.png").string() + ": no room\n");
    EXPECT_THAT(desk->notice()->text, EndsWith(": no room"));
    EXPECT_FALSE(desk->filesWorked());
    EXPECT_EQ(told, "");
}

TEST_F(DeskTest, AFolderThatIsNotThereIsSaid)
{
    start();
    Desk elsewhere(*session, { .folder = folder / "unborn", .complain = [this](const std::string& message) {
                                  complaints += message + '\n';
                              } });
    elsewhere.perform(WindowAct::Recording);
    EXPECT_FALSE(session->isRecording());
    const auto unborn = folder / "unborn";
    EXPECT_EQ(complaints, (unborn / "panotra-1.scenario").string() + ": there is no folder " + unborn.string() + '\n');
}

TEST_F(DeskTest, ARecordingBeginsAndEndsWithItsKey)
{
    open();
    session->play("press up");
    session->advance(1s);
    desk->perform(WindowAct::Recording);
    EXPECT_TRUE(session->isRecording());
    session->play("release up");
    session->advance(500ms);
    desk->perform(WindowAct::Recording);
    EXPECT_FALSE(session->isRecording());
    session->play("shake");
    EXPECT_THAT(contentOf(folder / "panotra-1.scenario"), EndsWith("press up\nwait 1\nrelease up\nwait 0.5\n"));
    EXPECT_EQ(told, "recording " + (folder / "panotra-1.scenario").string() + '\n');
    desk->perform(WindowAct::Recording);
    desk.reset();
    EXPECT_THAT(contentOf(folder / "panotra-2.scenario"), EndsWith("wait 0.5\nshake\n")) << "ended with the window";
}

TEST_F(DeskTest, TimeGoesOnByOneFrame)
{
    open();
    const double before = session->device().runLoop->now();
    desk->perform(WindowAct::NextFrame);
    EXPECT_TRUE(desk->pace().isPaused());
    EXPECT_NEAR(session->device().runLoop->now() - before, 1.0 / 60, 1e-6);
}

TEST_F(DeskTest, WhatCannotBeIsSaid)
{
    open();
    desk->perform(WindowAct::NextLine);
    EXPECT_EQ(desk->notice()->text, "No scenario is being played");
    EXPECT_FALSE(desk->pace().isPaused());
    desk->perform(WindowAct::FromStart);
    EXPECT_FALSE(desk->wantsStart());
    desk->perform(WindowAct::Faster);
    EXPECT_EQ(desk->notice()->text, "Speed 2\u00d7");
}

TEST_F(DeskTest, AScenarioStartsAnewUnlessItIsRecorded)
{
    const Scenario scenario = parseScenario("load\nwait 1\n");
    SessionSetup setup;
    setup.scenario = &scenario;
    session.emplace(setup, library);
    desk.emplace(*session, Desk::Means { .folder = folder.path() });
    desk->perform(WindowAct::Recording);
    desk->perform(WindowAct::FromStart);
    EXPECT_FALSE(desk->wantsStart());
    EXPECT_THAT(desk->notice()->text, HasSubstr("not started anew"));
    desk->perform(WindowAct::Recording);
    desk->perform(WindowAct::FromStart);
    EXPECT_TRUE(desk->wantsStart());
}

} // namespace
} // namespace panotra::sim
