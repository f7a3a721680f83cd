/// A session: what is recorded happens again, time is kept to the bit, other processes are noticed.
#include "tests/unit/window/SessionFixture.h"

namespace panotra::sim {
namespace {

using namespace std::chrono_literals;

using ::testing::HasSubstr;
using ::testing::Not;
using testing::ownDomain;

class SessionTest : public testing::SessionFixture {
protected:
    /// The trace of what was recorded, played on a phone without files.
    static std::string traceOf(const std::string& recording)
    {
        const Scenario scenario = parseScenario(recording);
        for (const Mistake& mistake : scenario.mistakes)
            ADD_FAILURE() << mistake.line << ": " << mistake.message;
        std::string trace;
        const auto writer = makeTraceWriter(TraceFormat::JsonLines, [&trace](std::string_view text) { trace += text; });
        Device device;
        device.traceSink = [&writer](const Json& event) {
            writer->event(event);
        };
        Player(device, loadedLibrary(), {}).play(scenario);
        return trace;
    }
};

TEST_F(SessionTest, APhoneThatNobodyHasSetUpShowsTheMixerAtTheFirstPress)
{
    start().play("press up");
    EXPECT_THAT(traced, HasSubstr("launched"));
    EXPECT_THAT(traced, HasSubstr("windowShown"));
    EXPECT_TRUE(session->isMoving());
}

TEST_F(SessionTest, WhatThePersonHasChosenIsLeft)
{
    writeElsewhere("replaceHUD", false);
    start().play("press up");
    EXPECT_THAT(traced, Not(HasSubstr("windowShown")));
    EXPECT_EQ(*session->setting(ownDomain, "replaceHUD"), false);
}

TEST_F(SessionTest, ARecordingPlaysToTheVeryTraceOfTheSession)
{
    writeElsewhere("volume3", 0.3);
    start();
    // Times such as no two additions in another order would give the same sum for.
    constexpr std::array times { 16667us, 3us, 100003us, 16666us, 333333us, 7us, 1234567us };
    const std::array lines { "press up", "release up", "touch down 188 500", "touch move 201.5 500",
        "touch move 90 500", "touch up", "activator net.qorvath.panotra.presentdismissmixer", "sound 1", "shake",
        "route Headphone", "announce Audio/Video RouteChange 0.5", "press down", "orientation 3",
        "statusbar-frame UIStatusBar 0 0 667 20" };
    for (int step = 0; step < 300; ++step) {
        const auto index = static_cast<std::size_t>(step);
        session->advance(times[index % times.size()]);
        if (step % 3 == 0)
            session->play(lines[index / 3 % lines.size()]);
        if (step % 50 == 0)
            session->set(ownDomain, "mixerSkin", step / 50 % 4);
        if (step == 120) {
            writeElsewhere("scale", 0.7);
            session->lookForForeignChanges();
        }
    }
    session->finish();
    session.reset();
    EXPECT_EQ(traceOf(recorded), traced);
    EXPECT_EQ(complaints, "");
}

TEST_F(SessionTest, TimeThatPassesBetweenLinesIsOneWait)
{
    start();
    newLines();
    session->advance(16667us);
    session->advance(16667us);
    session->play("press up");
    session->advance(1500000us);
    session->playAll({ "release up", "shake" });
    session->advance(1us);
    EXPECT_EQ(newLines(), "wait 0.033334\npress up\nwait 1.5\nrelease up\nshake\n");
    session->finish();
    EXPECT_EQ(newLines(), "wait 0.000001\n");
}

TEST_F(SessionTest, TheClockStandsWhereASingleWaitWouldHavePutIt)
{
    for (int step = 0; step < 40; ++step) {
        start();
        const auto first = 300001us + step * 7us;
        const auto second = 1600000us + step * 13us;
        session->advance(first);
        session->advance(second);
        // Adding in two steps rounds twice, which for some of these is once too often.
        EXPECT_EQ(session->device().runLoop->now(), static_cast<double>((first + second).count()) / 1e6) << step;
    }
}

TEST_F(SessionTest, ASettingIsStoredAndAnnouncedAsTheSettingsPageDoes)
{
    start();
    newLines();
    session->set(ownDomain, "mixerSkin", 2);
    session->set("net.qorvath.brevane2", "dismissDelay", 3.5);
    EXPECT_EQ(newLines(),
        "pref net.qorvath.panotra mixerSkin int 2\nnotify net.qorvath.panotra.settingschanged\n"
        "pref net.qorvath.brevane2 dismissDelay float 3.5\nnotify net.qorvath.brevane2.settingschanged\n");
    EXPECT_EQ(session->device().preferences->all()[ownDomain]["mixerSkin"], 2);
    EXPECT_EQ(library.globals()["mixerSkin"], 2);
    EXPECT_EQ(library.globals()["autoDismiss"], 3.5);
}

TEST_F(SessionTest, WhatAnotherProcessWritesIsAnnouncedAndObeyed)
{
    start();
    newLines();
    writeElsewhere("activeStyle", 1);
    session->lookForForeignChanges();
    EXPECT_EQ(newLines(), "pref net.qorvath.panotra activeStyle int 1\nnotify net.qorvath.panotra.settingschanged\n");
    EXPECT_EQ(*session->setting(ownDomain, "activeStyle"), 1);
    EXPECT_EQ(library.globals()["activeStyle"], 1);
    writeElsewhere("activeStyle", std::nullopt);
    session->lookForForeignChanges();
    EXPECT_EQ(newLines(), "unpref net.qorvath.panotra activeStyle\nnotify net.qorvath.panotra.settingschanged\n");
    EXPECT_EQ(session->setting(ownDomain, "activeStyle"), nullptr);
    writeElsewhere("key", "of nobody's concern", "net.example.domain");
    session->lookForForeignChanges();
    EXPECT_EQ(newLines(), "pref net.example.domain key string \"of nobody's concern\"\n");
    session->lookForForeignChanges();
    EXPECT_EQ(newLines(), "");
}

TEST_F(SessionTest, AChangeOfWhatIsReadAnewIsRecordedAndNotAnnounced)
{
    auto setup = setupOfFixture();
    setup.isUnannounced = [](const std::string&, const std::string& key) {
        return key == "volume1";
    };
    session.emplace(std::move(setup), library);
    newLines();
    writeElsewhere("volume1", 0.25);
    session->lookForForeignChanges();
    EXPECT_EQ(newLines(), "pref net.qorvath.panotra volume1 float 0.25\n");
    writeElsewhere("volume1", 0.5);
    writeElsewhere("activeStyle", 1);
    session->lookForForeignChanges();
    EXPECT_THAT(newLines(), HasSubstr("\nnotify net.qorvath.panotra.settingschanged\n"));
    EXPECT_EQ(*session->setting(ownDomain, "volume1"), 0.5);
}

TEST_F(SessionTest, WhatTheMixerSavesIsNotTakenForAnothersChange)
{
    start();
    session->play("activator net.qorvath.panotra.presentmixer");
    session->advance(500000us);
    for (const char* const line :
        { "pan 7 began 10", "pan 7 changed 33.3", "pan 7 changed 61.7", "pan 7 ended 77.7" }) {
        session->play(line);
        newLines();
        session->lookForForeignChanges();
        EXPECT_EQ(newLines(), "");
    }
    EXPECT_NE(*session->setting(ownDomain, "volume7"), 0.75);
}

TEST_F(SessionTest, AValueThatNoLineCanHoldIsToldInAComment)
{
    writeElsewhere("name", "two\nlines");
    start();
    EXPECT_THAT(recorded, HasSubstr("\n# beyond the scenario language: pref net.qorvath.panotra name string"));
    EXPECT_TRUE(parseScenario(recorded).mistakes.empty());
}

TEST_F(SessionTest, NothingButTheClocksNextMinuteIsDueOnceTheMixerIsGone)
{
    start();
    EXPECT_FALSE(session->isMoving());
    EXPECT_EQ(session->untilDue(), 60s);
    session->playAll({ "press up", "release up" });
    session->advance(1s);
    EXPECT_FALSE(session->isMoving());
    EXPECT_EQ(session->untilDue(), 1s) << "its dismissal";
    session->advance(1s);
    EXPECT_TRUE(session->isMoving());
    session->advance(1s);
    EXPECT_FALSE(session->isMoving());
    EXPECT_EQ(session->untilDue(), 57s);
    session->advance(57s);
    EXPECT_EQ(session->untilDue(), 60s) << "once a minute is all that an idle phone wakes";
}

TEST_F(SessionTest, HoweverLateSomethingIsDueTheClockGoesOn)
{
    start().set("net.qorvath.brevane2", "dismissDelay", 1e300);
    session->playAll({ "press up", "release up" });
    session->advance(1500ms);
    EXPECT_EQ(session->untilDue(), 58500ms);
}

TEST_F(SessionTest, TheHostsIndicatorMovesOnlyAsItFades)
{
    writeElsewhere("replaceHUD", false);
    start().playAll({ "press up", "release up" });
    session->advance(1s); // the mixer's own animations of the level and the slider, which nobody sees
    EXPECT_FALSE(session->isMoving());
    EXPECT_EQ(session->untilDue(), 1s);
    session->advance(1s);
    EXPECT_TRUE(session->isMoving());
    session->advance(1s);
    EXPECT_FALSE(session->isMoving());
    EXPECT_EQ(session->untilDue(), 57s) << "the next minute";
}

TEST_F(SessionTest, TheTraceForPeopleTellsWhatWasDoneAndWhatCameOfIt)
{
    start();
    session->advance(100ms);
    session->play("press up");
    const auto& lines = session->traceLines();
    const auto pressed = std::ranges::find(lines, "press up", &TraceLine::what);
    ASSERT_NE(pressed, lines.end());
    EXPECT_EQ(pressed->time, "") << "a command";
    EXPECT_EQ((pressed + 1)->what, "synchronize");
    EXPECT_EQ((pressed + 1)->time, "0.100");
    EXPECT_EQ(lines.back(), (TraceLine { "0.100", "announced", "Audio/Video 62.5%, ExplicitVolumeChange" }));
    EXPECT_EQ(std::ranges::count_if(lines, [](const TraceLine& line) { return line.what.starts_with("wait"); }), 0);
    for (int press = 0; press < 40; ++press)
        session->play("press up");
    EXPECT_EQ(lines.size(), Session::traceLinesKept);
}

TEST_F(SessionTest, AFileThatIsNoPropertyListIsComplainedOf)
{
    preferences::testing::writeBytes(folder / "net.qorvath.panotra.plist", "no property list");
    start();
    EXPECT_NE(complaints, "");
    EXPECT_FALSE(session->filesWorked());
}

} // namespace
} // namespace panotra::sim
