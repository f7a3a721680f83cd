/// A scenario bit by bit: on a stage that only writes down what it is told.
#include "simulator/scenario/Playback.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

namespace panotra::sim {
namespace {

using namespace std::chrono_literals;

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class PlaybackTest : public ::testing::Test, protected Stage {
protected:
    Playback& play(const std::string& lines)
    {
        text = lines;
        scenario = parseScenario(text);
        EXPECT_THAT(scenario.mistakes, IsEmpty());
        return playback.emplace(scenario, static_cast<Stage&>(*this));
    }
    std::string told() { return std::exchange(m_told, {}); }

private:
    void playCommand(const Command& command) override { m_told += std::string(command.source) + '\n'; }
    void passPartOfWait(std::chrono::microseconds time) override { m_told += std::to_string(time.count()) + " us\n"; }
    void finishWait(const Command& wait, std::chrono::microseconds rest) override
    {
        m_told += std::string(wait.source) + ", " + std::to_string(rest.count()) + " left\n";
    }

    std::string m_told;

protected:
    std::string text;
    Scenario scenario;
    std::optional<Playback> playback;
};

TEST_F(PlaybackTest, PlaysOneLineAfterTheOther)
{
    play("load\nwait 0.5\nlaunch\n");
    EXPECT_EQ(playback->next()->source, "load");
    playback->playLine();
    EXPECT_EQ(told(), "load\n");
    playback->playLine();
    EXPECT_EQ(told(), "wait 0.5, 500000 left\n");
    EXPECT_FALSE(playback->isAtEnd());
    playback->playLine();
    EXPECT_EQ(told(), "launch\n");
    EXPECT_TRUE(playback->isAtEnd());
    playback->playLine();
    EXPECT_EQ(told(), "");
}

TEST_F(PlaybackTest, PlaysWhatHappensInSoMuchTimeItsVeryEndIncluded)
{
    play("load\nlaunch\nwait 0.5\npress up\nwait 0.25\nrelease up\nwait 1\n");
    EXPECT_EQ(playback->passTime(0us), 0us);
    EXPECT_EQ(told(), "load\nlaunch\n");
    EXPECT_EQ(playback->untilNextLine(), 500000us);
    EXPECT_EQ(playback->passTime(100ms), 0us);
    EXPECT_EQ(told(), "100000 us\n");
    EXPECT_EQ(playback->untilNextLine(), 400000us);
    EXPECT_EQ(playback->passTime(400ms), 0us);
    EXPECT_EQ(told(), "wait 0.5, 400000 left\npress up\n");
    EXPECT_EQ(playback->passTime(300ms), 0us);
    EXPECT_EQ(told(), "wait 0.25, 250000 left\nrelease up\n50000 us\n");
    EXPECT_EQ(playback->passTime(2s), 1050ms) << "what is left when the scenario is over";
    EXPECT_EQ(told(), "wait 1, 950000 left\n");
    EXPECT_EQ(playback->untilNextLine(), std::nullopt);
}

TEST_F(PlaybackTest, ALineThatIsAskedForInTheMiddleOfAWaitEndsIt)
{
    play("wait 0.5\nload\n");
    playback->passTime(200ms);
    told();
    playback->playLine();
    EXPECT_EQ(told(), "wait 0.5, 300000 left\n");
    EXPECT_EQ(playback->next()->source, "load");
}

TEST_F(PlaybackTest, PlaysUntilALineOfTheFile)
{
    play("# nothing to be played\nload\n\nlaunch\nwait 3\nshake\n");
    playback->playUntilLine(5);
    EXPECT_EQ(told(), "load\nlaunch\n");
    playback->playUntilLine(100);
    EXPECT_EQ(told(), "wait 3, 3000000 left\nshake\n");
}

TEST_F(PlaybackTest, KnowsHowFarItIs)
{
    play("load\nwait 0.5\nlaunch\nwait 1.5\n");
    EXPECT_EQ(playback->length(), 2);
    EXPECT_EQ(playback->elapsed(), 0);
    playback->passTime(250ms);
    EXPECT_EQ(playback->elapsed(), 0.25);
    playback->passTime(500ms);
    EXPECT_EQ(playback->elapsed(), 0.75);
    playback->passTime(1h);
    EXPECT_EQ(playback->elapsed(), 2);
}

TEST_F(PlaybackTest, AWaitWithoutEndHasALength)
{
    play("wait 1e308\nwait 1e308\nload\n");
    EXPECT_EQ(playback->passTime(1h), 0us);
    EXPECT_GT(playback->untilNextLine(), 24h);
    EXPECT_TRUE(std::isfinite(playback->length()));
    playback->playUntilLine(3);
    EXPECT_TRUE(std::isfinite(playback->elapsed()));
}

TEST_F(PlaybackTest, ACaptionStandsFromItsLineUntilTheNext)
{
    play("load\n# Press it.\nwait 1\nlaunch\n# And now\n# let go.\nwait 1   # slowly\n");
    EXPECT_EQ(playback->caption(), nullptr);
    playback->passTime(0us);
    EXPECT_EQ(playback->caption(), nullptr) << "the wait has not begun";
    playback->passTime(1us);
    ASSERT_NE(playback->caption(), nullptr);
    EXPECT_EQ(playback->caption()->text, "Press it.");
    EXPECT_EQ(playback->caption()->line, 3U);
    playback->passTime(1s);
    EXPECT_EQ(playback->caption()->text, "And now let go. slowly");
    playback->passTime(1h);
    EXPECT_EQ(playback->caption()->line, 7U);
}

TEST(CaptionsTest, AreTheLastParagraphAboveALineAndWhatStandsBehindIt)
{
    const std::string text = "# A title.\n#\n# Not the last one.\n\n## The last,\n#   in two lines.\nload # loaded\n"
                             "launch\nnotify \"# no comment\"\n# with a mark # inside\nshake #\n#\nwait 1\n";
    const Scenario scenario = parseScenario(text);
    ASSERT_THAT(scenario.mistakes, IsEmpty());
    EXPECT_THAT(captionsOf(scenario),
        ElementsAre(Caption { 0, 7, "The last, in two lines. loaded" }, Caption { 3, 11, "with a mark # inside" }));
}

} // namespace
} // namespace panotra::sim
