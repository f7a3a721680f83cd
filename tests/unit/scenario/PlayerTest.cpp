/// Commands played on a device with a library that does nothing.
#include "simulator/scenario/Player.h"

#include "simulator/device/HomeScreen.h"
#include "simulator/device/Preferences.h"
#include "simulator/device/RunLoop.h"
#include "simulator/device/Services.h"
#include "tests/support/KnownFacts.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <ostream>
#include <string>
#include <vector>

namespace panotra::sim {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class PlayerTest : public ::testing::Test {
protected:
    PlayerTest()
    {
        device.traceSink = [this](const Json& event) {
            trace.push_back(event.dump());
        };
    }

    void play(std::string_view text, Pictures* pictures = nullptr)
    {
        const auto scenario = parseScenario(text);
        ASSERT_TRUE(scenario.mistakes.empty()) << scenario.mistakes.front().message;
        const Library library {
            .load = [this] { ++loads; },
            .globals =
                [] {
                    return Json { { "scale", 0.875 }, { "globalCategory", nullptr } };
                },
            .layoutMemory = [] { return LayoutMemory { .justCreated = true, .previousOrientation = -1 }; },
        };
        const Audience audience {
            .commandBegins = [this](const Command& command) { commands.emplace_back(command.source); },
            .expectationFailed
            = [this](std::size_t line,
                  const std::string& message) { complaints.push_back(std::to_string(line) + ": " + message); },
            .fileFailed = [this](const std::string& message) { complaints.push_back(message); },
        };
        Player player(device, library, audience, pictures);
        player.play(scenario);
        expectationsHeld = player.expectationsHeld();
        filesWorked = player.filesWorked();
    }

    Device device;
    int loads = 0;
    std::vector<std::string> trace;
    std::vector<std::string> commands;
    std::vector<std::string> complaints;
    bool expectationsHeld = false;
    bool filesWorked = false;
};

TEST_F(PlayerTest, LoadRunsTheLibrarysConstructor)
{
    play("wait 1");
    EXPECT_EQ(loads, 0);
    play("load");
    EXPECT_EQ(loads, 1);
}

TEST_F(PlayerTest, TheAudienceHearsOfEveryCommandInOrder)
{
    play("route nil # unplugged\nload\n\nlaunch");
    EXPECT_THAT(commands, ElementsAre("route nil # unplugged", "load", "launch"));
}

TEST_F(PlayerTest, TheRunLoopTurnsAfterEveryCommand)
{
    play("echo on\nload\nset-volume Alarm 0.25");
    EXPECT_THAT(trace,
        ElementsAre(R"({"t":0.0,"event":"setVolume","category":"Alarm","level":0.25})",
            R"({"t":0.0,"event":"announced","category":"Alarm","reason":"ExplicitVolumeChange","level":0.25})"));
}

TEST_F(PlayerTest, WaitMovesTheClock)
{
    play("wait 1.5\nwait 0.25\nload\nlaunch");
    EXPECT_EQ(device.runLoop->now(), 1.75);
    EXPECT_THAT(trace, ElementsAre(R"({"t":1.75,"event":"launched"})"));
}

TEST_F(PlayerTest, TheProcessIsWhatTheScenarioSaysItIs)
{
    play("process com.example.app\nscreen 320 480 1\nlack SBHUDController\nhave ABVolumeHUDManager");
    EXPECT_EQ(device.bundleIdentifier, "com.example.app");
    EXPECT_EQ(device.screen->width, 320);
    EXPECT_EQ(device.screen->height, 480);
    EXPECT_EQ(device.screen->scale, 1);
    EXPECT_TRUE(device.screen->hasRealDisplayBounds);
    EXPECT_EQ(device.classes->find("SBHUDController"), nullptr);
    EXPECT_NE(device.classes->find("ABVolumeHUDManager"), nullptr);
}

TEST_F(PlayerTest, AReferenceScreenHasNoRealDisplayBoundsAndScaleTwo)
{
    play("screen 1 1 3\nscreen reference 320 480");
    EXPECT_EQ(device.screen->width, 320);
    EXPECT_EQ(device.screen->scale, 2);
    EXPECT_FALSE(device.screen->hasRealDisplayBounds);
}

TEST_F(PlayerTest, TheHostIsChangedWithoutAnEvent)
{
    play("route Headphone\ncategory Ringtone\nsystem Alarm 0.1\necho on\nmode 7\nhold up\nhold down\nlet down\n"
         "orientation 3\nrotation-duration 0.5\nstatusbar hidden\nstatusbar center 1 2\nassistant visible\n"
         "darwin n 18446744073709551615");
    EXPECT_EQ(device.audio->route, "Headphone");
    EXPECT_EQ(device.audio->activeCategory, "Ringtone");
    EXPECT_EQ(device.audio->level("Alarm"), 0.1F);
    EXPECT_TRUE(device.audio->echo);
    EXPECT_EQ(device.home->volumeMode, 7);
    EXPECT_TRUE(device.home->volumeUpIsDown);
    EXPECT_FALSE(device.home->volumeDownIsDown);
    EXPECT_EQ(device.screen->orientation, 3);
    EXPECT_EQ(device.home->rotationDuration, 0.5);
    EXPECT_TRUE(device.screen->statusBarHidden);
    EXPECT_EQ(device.screen->statusBarCenter, std::pair(1.0, 2.0));
    EXPECT_TRUE(device.home->assistantVisible);
    EXPECT_EQ(device.darwin->state("n"), 18446744073709551615U);
    EXPECT_THAT(trace, IsEmpty());

    play("route nil\necho off\nlet up\nhold down\nstatusbar shown\nassistant hidden");
    EXPECT_EQ(device.audio->route, std::nullopt);
    EXPECT_FALSE(device.audio->echo);
    EXPECT_FALSE(device.home->volumeUpIsDown);
    EXPECT_TRUE(device.home->volumeDownIsDown);
    EXPECT_FALSE(device.screen->statusBarHidden);
    EXPECT_FALSE(device.home->assistantVisible);
}

TEST_F(PlayerTest, PreferencesKeepTheirKinds)
{
    play("pref d i int -5\npref d f float 0.5\npref d b bool yes\npref d s string 5\npref d gone int 1\nunpref d gone");
    EXPECT_EQ(device.preferences->all().dump(), R"({"d":{"i":-5,"f":0.5,"b":true,"s":"5"}})");
    EXPECT_THAT(trace, IsEmpty());
}

struct Event {
    const char* command;
    std::vector<std::string> trace; ///< with the time stamp left out
};

/// Names the test by its command.
void PrintTo(const Event& event, std::ostream* stream)
{
    *stream << ::testing::PrintToString(event.command);
}

class EventTest : public PlayerTest, public ::testing::WithParamInterface<Event> { };

TEST_P(EventTest, ReachesTheHostsOwnImplementation)
{
    play(std::string("load\n") + GetParam().command);
    std::vector<std::string> expected;
    for (const auto& event : GetParam().trace)
        expected.push_back(R"({"t":0.0,"event":)" + event + '}');
    EXPECT_EQ(trace, expected) << GetParam().command;
}

INSTANTIATE_TEST_SUITE_P(Every, EventTest,
    ::testing::Values(Event { "launch", { R"("launched")" } },
        Event { "announce Ringtone RouteChange 0.25",
            { R"("announced","category":"Ringtone","reason":"RouteChange","level":0.25)" } },
        Event { "announce nil nil nil", { R"("announced","category":null,"reason":null,"level":null)" } },
        Event { "active-volume named", { R"("activeVolume","named":true)" } },
        Event { "active-volume unnamed", { R"("activeVolume","named":false)" } },
        Event { "set-volume Alarm 0.5", { R"("setVolume","category":"Alarm","level":0.5)" } },
        Event { "mode 3\npress down",
            { R"("announced","category":"Audio/Video","reason":"ExplicitVolumeChange","level":0.4375)",
                R"("indicator","by":"_presentVolumeHUDWithMode:volume:","mode":3,"level":0.4375)" } },
        Event { "release up", {} },
        Event { "present-hud -1.5", { R"("indicator","by":"presentHUDView:autoDismissWithDelay:","delay":-1.5)" } },
        Event { "present-volume-hud 2 0.75",
            { R"("indicator","by":"_presentVolumeHUDWithMode:volume:","mode":2,"level":0.75)" } },
        Event { "reorient-hud yes", { R"("reoriented","flag":true)" } },
        Event { "reorient-hud no", { R"("reoriented","flag":false)" } },
        Event { "statusbar-frame _UIStatusBar 1 2 3 4",
            { R"("statusBarFrame","class":"_UIStatusBar","frame":[1.0,2.0,3.0,4.0])" } },
        Event { "ringer muted", { R"("ringer","muted":true)" } },
        Event { "ringer unmuted", { R"("ringer","muted":false)" } }, Event { "sound 5", { R"("sound","type":5)" } },
        Event { "sound untyped", { R"("sound","type":null)" } }, Event { "motion 0", { R"("motion","type":0)" } },
        Event { "shake", { R"("motion","type":1)" } }, Event { "notify n", {} }, Event { "activator l", {} },
        Event { "activator-ask title l", {} }, Event { "pan 3 began 5", {} },
        Event { "touch down 5 6", { R"("hit","x":5.0,"y":6.0,"view":null)" } },
        Event { "touch move 5 6\ntouch up", {} }));

TEST_F(PlayerTest, PressMarksTheButtonAsDownUntilItIsReleased)
{
    play("load\npress up\npress down\nrelease down");
    EXPECT_TRUE(device.home->volumeUpIsDown);
    EXPECT_FALSE(device.home->volumeDownIsDown);
}

TEST_F(PlayerTest, AnExpectationThatHoldsSaysNothing)
{
    play("expect globals.scale 0.875\nexpect globals.globalCategory nil\nexpect system.Audio/Video 0.5\n"
         "expect controller nil\nexpect running 0");
    EXPECT_TRUE(expectationsHeld);
    EXPECT_THAT(complaints, IsEmpty());
    EXPECT_THAT(trace, IsEmpty());
}

TEST_F(PlayerTest, EveryExpectationThatFailsIsReportedAndThePlayGoesOn)
{
    play("expect globals.scale 1\n\nexpect globals.bulk nil\nload\nlaunch\nexpect running nil");
    EXPECT_FALSE(expectationsHeld);
    EXPECT_TRUE(filesWorked);
    EXPECT_THAT(complaints,
        ElementsAre("1: found 0.875 at globals.scale, expected 1", "3: found nothing at globals.bulk, expected nil",
            "6: found 0 at running, expected nil"));
    EXPECT_EQ(trace.size(), 1U);
}

TEST_F(PlayerTest, AMisspeltPathIsToldTheNearestRightOne)
{
    play("pref net.example.domain \"k\x1b[31m\" int 1\nexpect globals.scal 1\nexpect prefs.net.example.domain.k[31m 1");
    EXPECT_THAT(complaints,
        ElementsAre("2: found nothing at globals.scal, expected 1 (did you mean globals.scale?)",
            "3: found nothing at prefs.net.example.domain.k[31m, expected 1 (did you mean "
            "prefs.net.example.domain.k\\x1b[31m?)"));
}

TEST_F(PlayerTest, StateTellsEverythingInOrderAndCreatesNothing)
{
    play("system New 0.25\npref d k int 1\nstate\nstate");
    ASSERT_EQ(trace.size(), 2U);
    std::string sliders;
    for (std::size_t slot = 0; slot < testing::knownSlotCount; ++slot)
        sliders += (slot == 0 ? "\"" : ",\"") + std::to_string(slot) + "\":null";
    std::string levels;
    for (const std::string_view category : testing::knownCategories)
        levels += '"' + std::string(category) + "\":0.5,";
    EXPECT_EQ(trace[0],
        R"({"t":0.0,"event":"state","globals":{"scale":0.875,"globalCategory":null},"controller":null,"sliders":{)"
            + sliders + R"(},"system":{)" + levels + R"("New":0.25},"prefs":{"d":{"k":1}},"pending":[],"running":0})");
    EXPECT_EQ(trace[1], trace[0]);
}

TEST_F(PlayerTest, TreeIsNullWithoutAWindow)
{
    play("tree");
    EXPECT_THAT(trace, ElementsAre(R"({"t":0.0,"event":"tree","root":null})"));
}

TEST_F(PlayerTest, WithoutPicturesAShotFailsAndSaysSo)
{
    play("shot a\nshot b");
    EXPECT_FALSE(filesWorked);
    EXPECT_TRUE(expectationsHeld);
    EXPECT_THAT(complaints, ElementsAre("a.png: this build draws no pictures", "b.png: this build draws no pictures"));
    EXPECT_THAT(trace, IsEmpty());
}

/// Draws nothing but remembers what it was asked for.
struct FakePictures : Pictures {
    std::optional<std::string> write(Device&, const std::string& fileName) override
    {
        asked.push_back(fileName);
        return failure;
    }
    std::vector<std::string> asked;
    std::optional<std::string> failure;
};

TEST_F(PlayerTest, AShotIsTracedOnceItIsWritten)
{
    FakePictures pictures;
    play("shot a", &pictures);
    EXPECT_TRUE(filesWorked);
    EXPECT_THAT(pictures.asked, ElementsAre("a.png"));
    EXPECT_THAT(trace, ElementsAre(R"({"t":0.0,"event":"shot","file":"a.png"})"));
}

TEST_F(PlayerTest, AShotThatCannotBeWrittenIsNotTraced)
{
    FakePictures pictures;
    pictures.failure = "a.png: No space left on device";
    play("shot a", &pictures);
    EXPECT_FALSE(filesWorked);
    EXPECT_THAT(complaints, ElementsAre("a.png: No space left on device"));
    EXPECT_THAT(trace, IsEmpty());
}

} // namespace
} // namespace panotra::sim
