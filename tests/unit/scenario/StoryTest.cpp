/// The trace as a person reads it who wants to know what happened.
#include "simulator/scenario/StoryWords.h"
#include "simulator/scenario/TraceWriter.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <initializer_list>
#include <set>
#include <string>

namespace panotra::sim {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

/// A story that is told as a test goes on.
class Told : public ::testing::Test {
protected:
    explicit Told(TextLook look = { .width = 120, .only = {} })
        : m_writer(makeTraceWriter(
            TraceFormat::Story, [this](std::string_view part) { text += part; }, std::move(look)))
    {
    }

    /// Events as JSON, without "t" where that is 0. Answers what is told of them.
    std::string tell(std::initializer_list<const char*> events)
    {
        for (const auto* event : events) {
            Json json { { "t", 0.0 } };
            json.update(Json::parse(event));
            m_writer->event(json);
        }
        m_writer->finish();
        return std::exchange(text, {});
    }
    void play(std::string_view scenario)
    {
        const auto parsed = parseScenario(scenario);
        for (const auto& command : parsed.commands)
            m_writer->command(command);
        text.clear();
    }

    std::string text;

private:
    std::unique_ptr<TraceWriter> m_writer;
};

using StoryText = Told;

/// A save in which the loudspeaker has this level and all others the half.
std::string saved(double speaker)
{
    std::string events;
    for (int slot = 0; slot < 12; ++slot)
        events += R"({"event":"write","domain":"net.qorvath.panotra","key":"volume)" + std::to_string(slot)
            + R"(","value":)" + std::to_string(slot == 0 ? speaker : 0.5) + "}\n";
    return events;
}

struct Events {
    explicit Events(const std::string& lines)
    {
        std::istringstream stream(lines);
        for (std::string line; std::getline(stream, line);)
            texts.push_back(line);
    }
    std::vector<std::string> texts;
};

TEST_F(StoryText, EveryEventHasItsSentence)
{
    const std::pair<const char*, const char*> cases[] = {
        { R"({"event":"hook","class":"C","method":"m:"})", "1 method hooked" },
        { R"({"event":"register","name":"n"})", "1 notification observed" },
        { R"({"event":"observe","name":"n"})", "1 notification observed" },
        { R"({"event":"listener","name":"n"})", "1 gesture offered" },
        { R"({"event":"launched"})", "home screen launched" },
        { R"({"event":"announced","category":"Audio/Video","reason":"ExplicitVolumeChange","level":0.5625})",
            "Speaker 50 % → 56 %" },
        { R"({"event":"announced","category":"Ringtone","reason":"RouteChange","level":0.5})", "now Ringtone at 50 %" },
        { R"({"event":"announced","category":"Other","reason":"CategoryChange","level":0.25})", "now Other at 25 %" },
        { R"({"event":"announced","category":null,"reason":null,"level":null})",
            "a change is announced, without a category" },
        { R"({"event":"announced","category":"Alarm","reason":"RouteChange","level":null})",
            "a change is announced of Alarm, without a level" },
        { R"({"event":"activeVolume","named":false})", "system asks for the active volume" },
        { R"({"event":"activeVolume","named":true})", "system asks for the active volume and its name" },
        { R"({"event":"setVolume","category":"Alarm","level":1})", "Alarm set to 100 %" },
        { R"({"event":"setVolume","category":null,"level":1})", "a level without a category is set" },
        { R"({"event":"indicator","by":"s:","delay":1.5})", "the system's own indicator shows for 1.5 s" },
        { R"({"event":"indicator","by":"s:","mode":0,"level":0.5})", "the system's own indicator shows, 50 %" },
        { R"({"event":"reoriented","flag":true})", "the system's indicator turns with the phone" },
        { R"({"event":"reoriented","flag":false})", "the system's indicator stays as it is" },
        { R"({"event":"statusBarFrame","class":"C","frame":[0,0.5,375,20]})", "status bar at (0, 0.5, 375, 20)" },
        { R"({"event":"sound","type":null})", "sound without a type plays" },
        { R"({"event":"sound","type":0})", "sound of type 0 plays" },
        { R"({"event":"ringer","muted":true})", "ringer muted" },
        { R"({"event":"motion","type":1})", "home screen feels motion of type 1" },
        { R"({"event":"post","name":"n"})", "n posted" },
        { R"({"event":"synchronize","domain":"net.qorvath.panotra"})", "settings read" },
        { R"({"event":"write","domain":"d","key":"k","value":0.25})", "k = 0.25 stored in d" },
        { R"({"event":"write","domain":"net.qorvath.panotra","key":"volume3","value":0.25})", "remembered" },
        { R"({"event":"schedule","selector":"destroyHUDWindow","object":null,"delay":2})", "stays another 2 s" },
        { R"({"event":"schedule","selector":"s:","object":"_volumeView0","delay":0.1})", "s: of Speaker due in 0.1 s" },
        { R"({"event":"cancel","selector":"s","object":null})", "s called off" },
        { R"({"event":"perform","selector":"s:","object":"_volumeView6"})", "s: of HeadsetBT (call) called" },
        { R"({"event":"dispatch","delay":0.1})", "work put off for 0.1 s" },
        { R"({"event":"dispatched"})", "work that was put off is done" },
        { R"({"event":"animate","duration":0.4,"delay":0,"options":2})", "mixer fades out over 0.4 s" },
        { R"({"event":"windowShown"})", "mixer comes back" },
        { R"({"event":"overlay","class":"C","action":"setHidden","value":true})", "other overlay C hidden" },
        { R"({"event":"overlay","class":"C","action":"hide"})", "other overlay C told to go" },
        { R"({"event":"assistant","action":"openSiri"})", "assistant opened" },
        { R"({"event":"assistant","action":"hideWindow"})", "assistant's window hidden" },
        { R"({"event":"assistant","action":"dismissSiri"})", "assistant dismissed" },
        { R"({"event":"handled","listener":"l"})", "gesture l handled" },
        { R"({"event":"answer","listener":"l","question":"icon","value":68})", "l answers icon: 68" },
        { R"({"event":"hit","x":187.5,"y":50,"view":null})", "finger on nothing of the mixer" },
        { R"({"event":"hit","x":187.5,"y":50,"view":"_volumeView9"})", "finger on Notifications" },
        { R"({"event":"shot","file":"a.png"})", "picture a.png" },
        { R"({"event":"tree","root":null})", "what is on the screen\n         no window" },
        { R"({"event":"novelty","a":1,"b":[true]})", "novelty, a 1, b (yes)" },
    };
    std::set<std::string> known { "animationEnd", "state" };
    for (const auto& [event, words] : cases) {
        EXPECT_EQ(tell({ event }), std::string("  0.000  ") + words + '\n');
        known.insert(Json::parse(event).at("event").get<std::string>());
    }
    for (const TraceEvent& event : traceEvents)
        EXPECT_TRUE(known.contains(std::string(event.name))) << event.name;
}

TEST_F(StoryText, TheEndOfAnAnimationIsNoNews)
{
    EXPECT_EQ(tell({ R"({"event":"animationEnd","finished":true})" }), "");
}

TEST_F(StoryText, APressIsTheChangedLevelTheMixerAndThatItIsRemembered)
{
    const Events first(saved(0.5)), second(saved(0.5625));
    for (const auto& event : first.texts)
        tell({ event.c_str() });
    EXPECT_EQ(tell({ R"({"event":"schedule","selector":"destroyHUDWindow","object":null,"delay":2.0})",
                  first.texts[0].c_str(), R"({"event":"animate","duration":0.15,"delay":0.0,"options":2})",
                  R"({"event":"windowShown"})", R"({"event":"animate","duration":0.15,"delay":0.0,"options":2})",
                  second.texts[0].c_str(), second.texts[1].c_str(),
                  R"({"event":"cancel","selector":"resetAnimation:","object":"_volumeView0"})",
                  R"({"event":"animate","duration":0.2,"delay":0.05,"options":2})",
                  R"({"event":"announced","category":"Audio/Video","reason":"ExplicitVolumeChange","level":0.5625})" }),
        "  0.000  Speaker 50 % → 56 %, mixer fades in over 0.3 s, stays 2 s, remembered, its slider swells\n");
    EXPECT_EQ(tell({ R"({"t":0.1,"event":"perform","selector":"resetAnimation:","object":"_volumeView0"})",
                  R"({"t":0.1,"event":"animate","duration":0.2,"delay":0,"options":2})" }),
        "  0.100  slider Speaker shrinks back\n");
}

TEST_F(StoryText, WhatIsSavedAgainUnchangedIsNotTold)
{
    const Events levels(saved(0.5));
    for (const auto& event : levels.texts)
        tell({ event.c_str() });
    EXPECT_EQ(tell({ R"({"event":"synchronize","domain":"net.qorvath.panotra"})", levels.texts[0].c_str(),
                  levels.texts[1].c_str() }),
        "");
}

TEST_F(StoryText, ALevelThatIsPutBackIsToldOnce)
{
    EXPECT_EQ(tell({ R"({"event":"setVolume","category":"Audio/Video","level":0.25})",
                  R"({"event":"announced","category":"Audio/Video","reason":"RouteChange","level":0.75})",
                  R"({"event":"announced","category":"Audio/Video","reason":"ExplicitVolumeChange","level":0.25})" }),
        "  0.000  now Speaker at 75 %, put back to 25 %\n");
}

TEST_F(StoryText, TheRouteDecidesWhoseLevelItIs)
{
    play("route HeadsetBT\ncategory PhoneCall\nsystem PhoneCall 0.25\n");
    EXPECT_EQ(
        tell({ R"({"event":"announced","category":"PhoneCall","reason":"ExplicitVolumeChange","level":0.3125})" }),
        "  0.000  HeadsetBT (call) 25 % → 31 %\n");
    play("route nil\n");
    EXPECT_EQ(tell({ R"({"event":"announced","category":"PhoneCall","reason":"ExplicitVolumeChange","level":0.375})" }),
        "  0.000  PhoneCall 31 % → 38 %\n");
}

TEST_F(StoryText, ASliderUnderAHeldButtonDoesNotShrink)
{
    const auto shrink = { R"({"event":"perform","selector":"resetAnimation:","object":"_volumeView0"})",
        R"({"event":"animate","duration":0.2,"delay":0,"options":2})" };
    play("load\npress up\n");
    EXPECT_EQ(tell(shrink), "");
    play("load\nrelease up\n");
    EXPECT_EQ(tell(shrink), "  0.000  slider Speaker shrinks back\n");
}

TEST_F(StoryText, AMixerThatComesBackWhileItFadesIsNotSaidToBeGone)
{
    const char* const dismissal = R"({"event":"perform","selector":"destroyHUDWindow","object":null})";
    const char* const fadeOut = R"({"event":"animate","duration":0.4,"delay":0,"options":2})";
    const char* const tearDown = R"({"event":"perform","selector":"releaseObjects","object":null})";
    EXPECT_EQ(tell({ R"({"event":"windowShown"})" }), "  0.000  mixer appears\n");
    EXPECT_EQ(tell({ dismissal, fadeOut }), "  0.000  mixer fades out over 0.4 s\n");
    EXPECT_EQ(tell({ R"({"event":"windowShown"})", tearDown }), "  0.000  mixer comes back\n");
    tell({ dismissal, fadeOut });
    EXPECT_EQ(tell({ R"({"event":"animationEnd","finished":true})",
                  R"({"event":"animate","duration":0.15,"delay":0,"options":2})" }),
        "  0.000  mixer comes back: its fade-in goes on\n");
    EXPECT_EQ(tell({ tearDown }), "");
    tell({ dismissal, fadeOut });
    EXPECT_EQ(tell({ tearDown }), "  0.000  mixer is gone\n");
}

TEST_F(StoryText, AMixerTurnsWithThePhone)
{
    const char* const layOut = R"({"event":"animate","duration":0.3,"delay":0,"options":2})";
    tell({ R"({"event":"windowShown"})" });
    EXPECT_EQ(tell({ layOut }), "");
    play("orientation 3\n");
    EXPECT_EQ(tell({ layOut }), "  0.000  mixer turns over 0.3 s\n");
    EXPECT_EQ(tell({ layOut }), "");
}

TEST_F(StoryText, StateIsToldInNamesAndLevels)
{
    EXPECT_EQ(tell({ R"({"event":"state","globals":{"activeStyle":1,"mixerSkin":7,"replaceHUD":true,"scale":0.875},
        "controller":{"window":true,"containerAlpha":1.0},"sliders":{"0":null,"3":{"volume":0.25}},
        "system":{"Ringtone":0.5},"prefs":{"net.qorvath.panotra":{"volume0":0.75}},
        "pending":[{"selector":"s:","object":"_volumeView3","due":1.5}],"running":2})" }),
        "  0.000  what there is now\n"
        "         settings    Style Banner, Skin 7, Replace Volume Indicator on, Size 0.875\n"
        "         mixer       there, alpha 1\n"
        "         sliders     Receiver (call) 25 %\n"
        "         remembered  Speaker 75 %\n"
        "         system      Ringtone 50 %\n"
        "         to come     s: of Receiver (call) at 1.5 s\n");
}

TEST_F(StoryText, StringsOfOthersDriveNoTerminal)
{
    EXPECT_THAT(tell({ R"({"event":"post","name":"a\u001b[31m\n"})" }), HasSubstr("a\\x1b[31m\\x0a posted\n"));
    EXPECT_THAT(
        tell({ R"({"event":"announced","category":"\u001b[31m","reason":"r","level":0.5})" }), Not(HasSubstr("\x1b")));
}

class StoryInColours : public Told {
protected:
    StoryInColours()
        : Told({ .width = 60, .hasColours = true, .only = {} })
    {
    }
};

TEST_F(StoryInColours, LevelsAndTimesStandOut)
{
    EXPECT_EQ(tell({ R"({"event":"setVolume","category":"Alarm","level":1})" }),
        "\x1b[2m  0.000  \x1b[0mAlarm set to \x1b[36m100 %\x1b[0m\n");
}

class StoryOfSome : public Told {
protected:
    StoryOfSome()
        : Told({ .width = 60, .only = onlyShown() })
    {
    }

    static EventFilter onlyShown()
    {
        EventFilter filter;
        EXPECT_EQ(filter.add("windowShown,shot"), "");
        return filter;
    }
};

TEST_F(StoryOfSome, TellsOnlyWhatWasAskedForAndKnowsTheRest)
{
    EXPECT_EQ(tell({ R"({"event":"ringer","muted":true})", R"({"event":"animate","duration":0.15,"delay":0})",
                  R"({"event":"windowShown"})" }),
        "  0.000  mixer fades in over 0.3 s\n");
    EXPECT_EQ(tell({ R"({"event":"ringer","muted":false})" }), "");
    EXPECT_EQ(tell({ R"({"event":"tree","root":null})" }), "");
}

TEST(EventFilter, NamesTheNearestEventToAMisspeltOne)
{
    EventFilter filter;
    EXPECT_EQ(
        filter.add("write,anounced"), "found \"anounced\", expected the name of an event (did you mean announced?)");
    EXPECT_THAT(filter.add("frobnicate"), HasSubstr("panotra play --reference lists them"));
    EXPECT_THAT(filter.add(""), HasSubstr("found \"\""));
}

TEST(LevelPhrases, HaveAsManyDigitsAsTellThemApart)
{
    EXPECT_EQ(changePhrase(0.5625, 0.625).text, "56 % → 63 %");
    EXPECT_EQ(changePhrase(0.561, 0.562).text, "56.1 % → 56.2 %");
    EXPECT_EQ(changePhrase({}, 0.125).text, "13 %");
    EXPECT_EQ(changePhrase(0.5, 0.5).text, "50 %");
    EXPECT_EQ(levelPhrase(-0.25).text, "-25 %");
    EXPECT_EQ(levelPhrase(1e300).text.size(), 305U);
}

TEST(Paragraph, BreaksBetweenWordsAndKeepsLevelsWhole)
{
    const std::vector<Phrase> words { { "Speaker " }, { "56 % → 63 %", Ink::Level }, { ", mixer fades in" } };
    EXPECT_EQ(paragraph({ "  0  ", "     " }, words, { .width = 24, .only = {} }),
        "  0  Speaker\n     56 % → 63 %, mixer\n     fades in\n");
}

TEST(Paragraph, WordsOfOneInkShareItsColour)
{
    EXPECT_EQ(paragraph({ "> ", "> ", Ink::Remark }, { { "one two ", Ink::Remark }, { "three four" } },
                  { .width = 24, .hasColours = true, .only = {} }),
        "\x1b[2m> one two\x1b[0m three four\n");
}

TEST(Paragraph, AWordThatNoLineCouldHoldIsBrokenWhereTheLineEnds)
{
    EXPECT_EQ(paragraph({ "> ", "> " }, { { "音量音量音量音量音量音量 x" } }, { .width = 21, .only = {} }),
        "> 音量音量音量音量音\n> 量音量 x\n");
}

} // namespace
} // namespace panotra::sim
