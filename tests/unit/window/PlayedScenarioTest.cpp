/// A scenario that is played in a session: watched, taken over, recorded.
#include "simulator/window/Desk.h"
#include "simulator/window/Person.h"
#include "tests/unit/window/SessionFixture.h"

namespace panotra::sim {
namespace {

using namespace std::chrono_literals;

using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

constexpr const char* day = "# A day.\npref net.qorvath.panotra replaceHUD bool yes\nload\nlaunch\n\n"
                            "# A press.\npress up\nwait 0.3333333333333333   # to see it\nrelease up\nwait 1e-7\n"
                            "route Headphone\nannounce Audio/Video RouteChange 0.5\nwait 2.00000049\nringer muted\n"
                            "category PhoneCall\ntouch down 180 300\nwait 0.1\ntouch move 190 300\nwait 5\n"
                            "expect globals.replaceHUD no\n";

class PlayedScenario : public testing::SessionFixture {
protected:
    Session& play(const std::string& lines)
    {
        text = lines;
        scenario = parseScenario(text);
        EXPECT_THAT(scenario.mistakes, IsEmpty());
        setup = setupOfFixture();
        setup.preferencesFolder.reset();
        setup.scenario = &scenario;
        setup.expectationFailed = [this](std::size_t line, const std::string& message) {
            complaints += std::to_string(line) + ": " + message + '\n';
        };
        return session.emplace(setup, library);
    }
    /// In frames of odd lengths, exactly until the scenario is over.
    void playToTheEnd()
    {
        constexpr std::array times { 16667us, 3us, 100003us, 333333us, 7us };
        for (std::size_t step = 0; session->isPlaying(); ++step) {
            const Playback& playback = *session->playback();
            const bool isNearEnd = playback.length() - playback.elapsed() < 1;
            const auto time = times[step % times.size()];
            session->advance(isNearEnd ? std::min(time, *playback.untilNextLine()) : time);
        }
    }
    /// The trace of a scenario that is played in one go.
    std::string traceOf(const std::string& lines)
    {
        const Scenario played = parseScenario(lines);
        for (const Mistake& mistake : played.mistakes)
            ADD_FAILURE() << mistake.line << ": " << mistake.message;
        std::string trace;
        const auto writer = makeTraceWriter(TraceFormat::JsonLines, [&trace](std::string_view line) { trace += line; });
        Device device;
        device.traceSink = [&writer](const Json& event) {
            writer->event(event);
        };
        Player(device, loadedLibrary(), {}).play(played);
        return trace;
    }

    std::string text;
    Scenario scenario;
    SessionSetup setup;
};

TEST_F(PlayedScenario, LeavesTheVeryTraceAndRecordsItsVeryLines)
{
    play(day);
    EXPECT_EQ(recorded, "") << "nothing is played yet";
    playToTheEnd();
    session->finish();
    session.reset();
    EXPECT_EQ(recorded, std::string(day).replace(std::string(day).find("\n\n"), 2, "\n"));
    EXPECT_EQ(traced, traceOf(day));
    EXPECT_EQ(complaints, "20: found yes at globals.replaceHUD, expected no\n");
}

TEST_F(PlayedScenario, EndsWhereAPersonActsWhoHasThePhoneFromThenOn)
{
    play(day);
    session->advance(0us);
    session->advance(100ms);
    newLines();
    session->play("shake");
    EXPECT_FALSE(session->isPlaying());
    session->advance(10s);
    session->play("release up");
    session->finish();
    EXPECT_EQ(newLines(), "wait 0.1\nshake\nwait 10\nrelease up\n");
    session.reset();
    EXPECT_EQ(traceOf(recorded), traced);
}

TEST_F(PlayedScenario, IsThePersonsWhenItIsOver)
{
    play("load\nlaunch\nwait 1\n");
    session->advance(3s);
    EXPECT_FALSE(session->isPlaying());
    session->play("shake");
    session->finish();
    EXPECT_THAT(recorded, EndsWith("wait 1\nwait 2\nshake\n"));
    session.reset();
    EXPECT_EQ(traceOf(recorded), traced);
}

TEST_F(PlayedScenario, WhoTakesOverBeforeThePhoneIsStartedStartsIt)
{
    play("system Ringtone 0.5\nwait 5\nload\n");
    session->advance(1s);
    session->play("shake");
    EXPECT_EQ(recorded, "system Ringtone 0.5\nwait 1\nload\nlaunch\nshake\n");
    session.reset();
    EXPECT_EQ(traceOf(recorded), traced);
}

TEST_F(PlayedScenario, GoesOnLineByLine)
{
    play("# First.\nload\nwait 2\nlaunch\n");
    session->playNextLine();
    EXPECT_EQ(newLines(), "# First.\nload\n");
    session->advance(500ms);
    session->playNextLine();
    EXPECT_EQ(newLines(), "wait 2\n");
    EXPECT_EQ(session->device().runLoop->now(), 2);
    session->playNextLine();
    EXPECT_EQ(newLines(), "launch\n");
    session->playNextLine();
    EXPECT_EQ(newLines(), "");
}

TEST_F(PlayedScenario, NeedsNothingUntilItsNextLine)
{
    play("load\nlaunch\nwait 7.5\nshake\n");
    session->advance(0us);
    EXPECT_EQ(session->untilDue(), 7500ms);
    session->advance(7s);
    EXPECT_EQ(session->untilDue(), 500ms);
}

TEST_F(PlayedScenario, ARecordingThatBeginsInItsMiddleHoldsAllThatWasBefore)
{
    play(day);
    session->advance(0us);
    session->advance(100ms);
    std::string recording;
    session->beginRecording([&recording](std::string_view line) { recording += line; });
    EXPECT_FALSE(session->canStartAnew());
    EXPECT_THAT(recording, EndsWith("wait 0.1\n"));
    session->advance(1s);
    session->endRecording();
    const std::string before = traced;
    session->advance(10s);
    session.reset();
    EXPECT_EQ(traceOf(recording), before);
}

TEST_F(PlayedScenario, WhatItStoresIsKnownBesideThePhoneAndIsNobodyElses)
{
    play("pref net.qorvath.panotra mixerSkin int 2\nload\nunpref net.qorvath.panotra mixerSkin\nwait 1\n"
         "pref net.qorvath.panotra activeStyle int 1\n");
    session->playNextLine();
    EXPECT_EQ(*session->setting(testing::ownDomain, "mixerSkin"), 2);
    playToTheEnd();
    EXPECT_EQ(session->setting(testing::ownDomain, "mixerSkin"), nullptr);
    newLines();
    session->lookForForeignChanges();
    EXPECT_EQ(newLines(), "");
}

TEST_F(PlayedScenario, AForeignChangeInTheMiddleOfAWaitIsRecordedThere)
{
    play("load\nlaunch\nwait 2\nshake\n");
    setup.preferencesFolder = folder.path();
    session.emplace(setup, library);
    recorded.clear();
    traced.clear();
    session->advance(500ms);
    writeElsewhere("scale", 0.7);
    session->lookForForeignChanges();
    session->advance(1600ms);
    session->finish();
    EXPECT_EQ(recorded,
        "load\nlaunch\nwait 0.5\npref net.qorvath.panotra scale float 0.7\n"
        "notify net.qorvath.panotra.settingschanged\nwait 1.5\nshake\nwait 0.1\n");
    session.reset();
    EXPECT_EQ(traceOf(recorded), traced);
}

TEST_F(PlayedScenario, ThePhoneKnowsWhatTheScenarioHasMadeOfIt)
{
    play(day);
    Phone phone(session->device());
    session->setWatcher([&phone](const Command& command) { phone.follow(command); });
    session->advance(2400ms);
    EXPECT_TRUE(phone.isPluggedIn("Headphone"));
    EXPECT_TRUE(phone.isRingerMuted());
    EXPECT_TRUE(phone.isInCall());
    ASSERT_TRUE(phone.finger().has_value());
    EXPECT_EQ(phone.finger()->x, 180);
    session->advance(100ms);
    EXPECT_EQ(phone.finger()->x, 190);
    session->playAll(phone.beginOrEndCall());
    EXPECT_THAT(recorded, HasSubstr("category Audio/Video\n")) << "what was on before the call is on again";
}

TEST_F(PlayedScenario, ATouchOfThePersonTakesOver)
{
    play(day);
    session->advance(100ms);
    Phone phone(session->device());
    Desk desk(*session, {});
    Person person(*session, phone, { .perform = [&desk](WindowAct act) {
        desk.perform(act);
    } });
    const Layout layout = layOut({ 1200, 800 }, {}, 1, Footer::Player);
    Sheet sheet = makeSheet({ *session, phone, layout, person.attention(), &desk });
    person.see(sheet, layout);
    const auto press = [&](WindowAct act) {
        const auto spot = std::ranges::find_if(sheet.spots, [act](const Spot& each) {
            return each.purpose == Spot::Purpose::Act && each.index == static_cast<std::size_t>(act);
        });
        ASSERT_NE(spot, sheet.spots.end());
        person.pointerDown({ spot->area.x + 3, spot->area.y + 3 });
        person.pointerUp({ spot->area.x + 3, spot->area.y + 3 });
    };
    press(WindowAct::Pause);
    EXPECT_TRUE(desk.pace().isPaused());
    press(WindowAct::NextLine);
    EXPECT_TRUE(session->isPlaying()) << "its buttons rule it, they do not end it";
    person.keyDown("S");
    EXPECT_FALSE(session->isPlaying());
    EXPECT_THAT(recorded, EndsWith("shake\n"));
}

} // namespace
} // namespace panotra::sim
