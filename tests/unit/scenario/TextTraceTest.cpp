/// The trace as a person reads it.
#include "simulator/device/EventFields.h"
#include "simulator/scenario/TextFormat.h"
#include "simulator/scenario/TextTemplate.h"
#include "simulator/scenario/TraceWriter.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <cstdint>
#include <initializer_list>
#include <limits>
#include <set>
#include <string>

namespace panotra::sim {
namespace {

using ::testing::HasSubstr;

/// The text of a trace, given as JSON Lines without "t" where that is 0.
std::string textOf(std::initializer_list<const char*> events)
{
    std::string text;
    const auto writer = makeTraceWriter(TraceFormat::Verbose, [&text](std::string_view part) { text += part; });
    for (const auto* event : events) {
        Json json { { "t", 0.0 } };
        json.update(Json::parse(event));
        writer->event(json);
    }
    writer->finish();
    return text;
}

TEST(TextTrace, AnEventIsALineWithTimeWhatAndWithWhat)
{
    EXPECT_EQ(textOf({ R"({"t":12.5,"event":"setVolume","category":"Audio/Video","level":0.5625})" }),
        "    12.500  setVolume      Audio/Video 56.25%\n");
    EXPECT_EQ(textOf({ R"({"event":"launched"})" }), "     0.000  launched\n");
}

TEST(TextTrace, EveryEventHasItsWording)
{
    const std::pair<const char*, const char*> cases[] = {
        { R"({"event":"hook","class":"C","method":"m:"})", "hook           C m:" },
        { R"({"event":"register","name":"n"})", "register       n" },
        { R"({"event":"observe","name":"n"})", "observe        n" },
        { R"({"event":"listener","name":"n"})", "listener       n" },
        { R"({"event":"announced","category":"Ringtone","reason":"RouteChange","level":0.5})",
            "announced      Ringtone 50%, RouteChange" },
        { R"({"event":"announced","category":null,"reason":null,"level":null})", "announced      nil nil, nil" },
        { R"({"event":"activeVolume","named":false})", "activeVolume   unnamed" },
        { R"({"event":"setVolume","category":null,"level":1})", "setVolume      nil 100%" },
        { R"({"event":"indicator","by":"s:","delay":1.5})", "indicator      s: for 1.5 s" },
        { R"({"event":"indicator","by":"s:","mode":0,"level":0.5})", "indicator      s: mode 0, 50%" },
        { R"({"event":"reoriented","flag":true})", "reoriented     yes" },
        { R"({"event":"statusBarFrame","class":"C","frame":[0,0.5,375,20]})", "statusBarFrame C (0, 0.5, 375, 20)" },
        { R"({"event":"sound","type":null})", "sound          untyped" },
        { R"({"event":"sound","type":0})", "sound          type 0" },
        { R"({"event":"ringer","muted":true})", "ringer         muted" },
        { R"({"event":"motion","type":1})", "motion         type 1" },
        { R"({"event":"post","name":"n"})", "post           n" },
        { R"({"event":"synchronize","domain":"d"})", "synchronize    d" },
        { R"({"event":"write","domain":"d","key":"volume3","value":0.25})", "write          d  volume3 25%" },
        { R"({"event":"schedule","selector":"s:","object":"_volumeView0","delay":0.1})",
            "schedule       s: _volumeView0 in 0.1 s" },
        { R"({"event":"cancel","selector":"s","object":null})", "cancel         s" },
        { R"({"event":"perform","selector":"s:","object":"_volumeView0"})", "perform        s: _volumeView0" },
        { R"({"event":"dispatch","delay":0.1})", "dispatch       in 0.1 s" },
        { R"({"event":"dispatched"})", "dispatched" },
        { R"({"event":"animate","duration":0.15,"delay":0,"options":2})", "animate        for 0.15 s, options 2" },
        { R"({"event":"animate","duration":0.2,"delay":0.05,"options":2})",
            "animate        for 0.2 s after 0.05 s, options 2" },
        { R"({"event":"animationEnd","finished":false})", "animationEnd   interrupted" },
        { R"({"event":"windowShown"})", "windowShown" },
        { R"({"event":"overlay","class":"C","action":"setHidden","value":true})", "overlay        C setHidden yes" },
        { R"({"event":"overlay","class":"C","action":"hide"})", "overlay        C hide" },
        { R"({"event":"assistant","action":"openSiri"})", "assistant      openSiri" },
        { R"({"event":"handled","listener":"l"})", "handled        l" },
        { R"({"event":"answer","listener":"l","question":"icon","value":68})", "answer         l icon: 68" },
        { R"({"event":"hit","x":187.5,"y":50,"view":null})", "hit            (187.5, 50) nil" },
        { R"({"event":"shot","file":"a.png"})", "shot           a.png" },
        { R"({"event":"tree","root":null})", "tree           no window" },
        { R"({"event":"novelty","a":1,"b":[true]})", "novelty        a 1, b (yes)" },
    };
    std::set<std::string> known { "launched", "setVolume", "state" };
    for (const auto& [event, words] : cases) {
        EXPECT_EQ(textOf({ event }), std::string("     0.000  ") + words + '\n');
        known.insert(Json::parse(event).at("event").get<std::string>());
    }
    for (const TraceEvent& event : traceEvents)
        EXPECT_TRUE(known.contains(std::string(event.name))) << event.name;
}

TEST(TextTrace, HooksThatFollowEachOtherShareALine)
{
    EXPECT_EQ(textOf({ R"({"event":"hook","class":"A","method":"a"})", R"({"event":"hook","class":"B","method":"b"})",
                  R"({"event":"hook","class":"A","method":"c"})" }),
        "     0.000  hook           3 methods of A, B\n");
}

TEST(TextTrace, ObserversThatFollowEachOtherShareALine)
{
    EXPECT_EQ(textOf({ R"({"event":"observe","name":"a"})", R"({"event":"observe","name":"b"})",
                  R"({"event":"register","name":"c"})", R"({"event":"observe","name":"d"})" }),
        "     0.000  observe        a, b\n"
        "     0.000  register       c\n"
        "     0.000  observe        d\n");
}

TEST(TextTrace, TheLevelsOfASaveShareALine)
{
    EXPECT_EQ(textOf({ R"({"event":"synchronize","domain":"d"})",
                  R"({"event":"write","domain":"d","key":"volume0","value":0.5})",
                  R"({"event":"write","domain":"d","key":"volume1","value":0.0625})",
                  R"({"event":"write","domain":"d","key":"volume2","value":1})" }),
        "     0.000  write          d  volume0 to volume2: 50% 6.25% 100%\n");
}

TEST(TextTrace, KeysThatMakeNoRowAreNamedOneByOne)
{
    EXPECT_EQ(textOf({ R"({"event":"write","domain":"d","key":"volume3","value":0.5})",
                  R"({"event":"write","domain":"d","key":"volume7","value":0.25})" }),
        "     0.000  write          d  volume3 50%, volume7 25%\n");
}

TEST(TextTrace, OneLevelAloneIsNoRow)
{
    EXPECT_EQ(textOf({ R"({"event":"synchronize","domain":"d"})",
                  R"({"event":"write","domain":"d","key":"volume0","value":0.5})" }),
        "     0.000  write          d  volume0 50%\n");
}

TEST(TextTrace, WritesOfAnotherDomainOrMomentKeepTheirOwnLines)
{
    EXPECT_EQ(textOf({ R"({"event":"synchronize","domain":"other"})",
                  R"({"event":"write","domain":"d","key":"volume0","value":0.5})",
                  R"({"t":1,"event":"write","domain":"d","key":"volume1","value":0.5})" }),
        "     0.000  synchronize    other\n"
        "     0.000  write          d  volume0 50%\n"
        "     1.000  write          d  volume1 50%\n");
}

TEST(TextTrace, ALineThatRepeatsItselfIsCounted)
{
    EXPECT_EQ(textOf({ R"({"event":"animationEnd","finished":true})", R"({"event":"animationEnd","finished":true})",
                  R"({"t":1,"event":"animationEnd","finished":true})" }),
        "     0.000  animationEnd   finished  (2 times)\n"
        "     1.000  animationEnd   finished\n");
}

TEST(TextTrace, CommandsStandAboveWhatTheyBroughtAbout)
{
    std::string text;
    const auto writer = makeTraceWriter(TraceFormat::Verbose, [&text](std::string_view part) { text += part; });
    Command command { .line = 1, .source = "route nil", .remarks = {}, .form = nullptr, .arguments = {} };
    writer->command(command);
    command.source = "launch\t# up it goes";
    writer->command(command);
    writer->event({ { "t", 0.0 }, { "event", "launched" } });
    writer->event({ { "t", 0.0 }, { "event", "launched" } });
    command.source = "wait 1";
    writer->command(command);
    writer->finish();
    EXPECT_EQ(text,
        "route nil\n"
        "launch\\x09# up it goes\n"
        "     0.000  launched  (2 times)\n"
        "\n"
        "wait 1\n");
}

TEST(TextTrace, CommentsStandAboveTheirCommands)
{
    std::string text;
    const auto writer = makeTraceWriter(TraceFormat::Verbose, [&text](std::string_view part) { text += part; });
    const auto scenario = parseScenario("# Morning.\n\n# Music.\n\nwait 1\nwait 2\n\n  # Noon.\r\nwait 3\n# Night.\n");
    for (const auto& command : scenario.commands)
        writer->command(command);
    writer->finish();
    EXPECT_EQ(text,
        "# Morning.\n"
        "\n"
        "# Music.\n"
        "wait 1\n"
        "wait 2\n"
        "\n"
        "# Noon.\n"
        "wait 3\n");
}

TEST(TextTrace, StringsOfOthersDriveNoTerminal)
{
    EXPECT_THAT(
        textOf({ R"({"event":"post","name":"a\u001b[31m\n\u0085"})" }), HasSubstr("a\\x1b[31m\\x0a\\xc2\\x85\n"));
}

TEST(TextTrace, StateIsABlock)
{
    EXPECT_EQ(textOf({ R"({"event":"state","globals":{"activeStyle":0,"globalCategory":null},"controller":null,
        "sliders":{"0":null,"3":{"volume":0.25,"text":"25%","scale":1,"frame":[1,2,3,4]}},
        "system":{"Ringtone":0.5},"prefs":{"d":{"on":true}},
        "pending":[{"selector":"s:","object":"_volumeView3","due":1.5}],"running":2})" }),
        "     0.000  state\n"
        "            globals     activeStyle 0, globalCategory nil\n"
        "            controller  none\n"
        "            sliders     3  25%, text 25%, scale 1, frame (1, 2, 3, 4)\n"
        "            system      Ringtone 50%\n"
        "            prefs       d\n"
        "                        on yes\n"
        "            pending     s: _volumeView3 at 1.5 s\n"
        "            animations  2 running\n");
}

TEST(TextTrace, TreeIsABlockThatTellsWhatSetsAViewApart)
{
    EXPECT_EQ(textOf({ R"({"event":"tree","root":{"name":"_window","class":"PNOWindow","frame":[0,0,375,667],
        "bounds":[375,667],"center":[0,0],"transform":[1,0,0,1,0,0],"alpha":1,"hidden":false,"interaction":true,
        "background":null,"layer":{"masksToBounds":false,"cornerRadius":0,"continuousCorners":false,"borderWidth":0,
        "borderColor":null},"level":2100,"subviews":[{"name":"_label1","class":"UILabel","frame":[1,2,3,4],
        "bounds":[3,4],"center":[0,0],"transform":[2,0,0,2,0,0],"alpha":0.5,"hidden":true,"interaction":false,
        "background":[0,0,0,1],"layer":{"masksToBounds":true,"cornerRadius":5,"continuousCorners":true,"borderWidth":1,
        "borderColor":[1,1,1,1]},"text":"50%","textColor":null,"fontSize":15,"fontWeight":"light","alignment":1,
        "subviews":[]}]}})" }),
        "     0.000  tree\n"
        "            _window PNOWindow (0, 0, 375, 667), level 2100\n"
        "              _label1 UILabel (1, 2, 3, 4), transform (2, 0, 0, 2, 0, 0), alpha 0.5, hidden, "
        "background (0, 0, 0, 1), clipped, corners 5, continuous, border 1 in (1, 1, 1, 1), \"50%\", 15 pt light\n");
}

TEST(TextTemplate, FillsFieldsLevelsAndChoices)
{
    const Json fields { { "name", "n" }, { "level", 0.25 }, { "on", true }, { "off", false }, { "none", nullptr } };
    EXPECT_EQ(fillTemplate("{name} {level%} {none} {absent}", fields), "n 25% nil nil");
    EXPECT_EQ(fillTemplate("{on?a:b}{off?a:b}{none?a:b}{absent?a:b}{name?a:b}", fields), "abbba");
    EXPECT_EQ(fillTemplate("x[ {none}][ {absent}][ {name}]y", fields), "x ny");
    EXPECT_EQ(fillTemplate("[{level!0.25}][{level!0.5}]", fields), "0.25");
}

TEST(TextFormat, NumbersAreShort)
{
    EXPECT_EQ(shortNumber(0.1F), "0.1");
    EXPECT_EQ(shortNumber(667), "667");
    EXPECT_EQ(percent(1.0 / 3), "33.33%");
    EXPECT_EQ(percent(Json("x")), "x");
}

TEST(TextFormat, LongListsAreWrappedUnderTheirBeginning)
{
    const std::vector<std::string> items(3, std::string(50, 'x'));
    EXPECT_EQ(wrapped("", items, 5), items[0] + ", " + items[1] + ",\n     " + items[2]);
}

TEST(JsonTrace, IsOneObjectALineWithNumbersThatReadBackTheSame)
{
    for (const double number : { 0.1, 1.0 / 3, 5e-324, 1.7976931348623157e308, -0.0, static_cast<double>(0.1F) }) {
        const auto line = jsonLine({ { "t", number } });
        EXPECT_EQ(line.find('\n'), line.size() - 1);
        EXPECT_EQ(Json::parse(line).at("t").get<double>(), number) << line;
    }
}

TEST(JsonTrace, ReplacesBytesThatAreNotUtf8)
{
    EXPECT_EQ(jsonLine({ { "x", "a\xFFz" } }), "{\"x\":\"a\xEF\xBF\xBDz\"}\n");
}

TEST(JsonTrace, ALineIsToTheByteWhatTheObjectOfItsEventWouldBe)
{
    Device device;
    std::string lines;
    std::string objects;
    device.traceLines = [&lines](std::string_view line) {
        lines += line;
    };
    device.traceSink = [&objects](const Json& event) {
        objects += jsonLine(event);
    };
    using Doubles = std::numeric_limits<double>;
    using Integers = std::numeric_limits<std::int64_t>;
    for (const double number : { 0.1, 1.0 / 3, -0.0, 100.0, 1e15, 1e16, 9.5e-5, Doubles::denorm_min(), Doubles::max(),
             static_cast<double>(0.1F), Doubles::infinity(), Doubles::quiet_NaN() })
        device.trace("dispatch", [number](EventFields& fields) { fields.add("delay", number); });
    for (const std::string& text : { std::string("plain"), std::string("\"quoted\" \\ and /"),
             std::string("\b\f\n\r\t\x01\x1f\x7f"), std::string("\xC3\xA9\xE2\x82\xAC"), std::string("a\xFFz"),
             std::string("a\xC3"), std::string(1, '\0'), std::string() })
        device.trace("post", [&text](EventFields& fields) { fields.add("name", text); });
    const std::string held = "held";
    const std::string* const none = nullptr;
    device.trace("cancel", [&](EventFields& fields) { fields.add("selector", &held, "object", none); });
    for (const std::int64_t mode : { Integers::min(), std::int64_t { -1 }, Integers::max() })
        device.trace("indicator", [mode](EventFields& fields) { fields.add("by", "a", "mode", mode, "delay", 0.0); });
    device.trace("animate", [](EventFields& fields) {
        fields.add("duration", 0.0, "delay", 0.5F, "options", std::numeric_limits<std::uint64_t>::max());
    });
    device.trace("activeVolume", [](EventFields& fields) { fields.add("named", true); });
    device.trace("tree", [](EventFields& fields) { fields.add("root", Json { { "a", { 1, nullptr, "\xFF" } } }); });
    device.trace("launched");
    EXPECT_EQ(lines, objects);
    EXPECT_EQ(std::ranges::count(lines, '\n'), 28);
}

TEST(JsonTrace, WritesEventsAndNothingElse)
{
    std::string text;
    const auto writer = makeTraceWriter(TraceFormat::JsonLines, [&text](std::string_view part) { text += part; });
    writer->command({ .line = 1, .source = "load", .remarks = {}, .form = nullptr, .arguments = {} });
    writer->event({ { "t", 0.5 }, { "event", "launched" } });
    writer->finish();
    EXPECT_EQ(text, "{\"t\":0.5,\"event\":\"launched\"}\n");
}

} // namespace
} // namespace panotra::sim
