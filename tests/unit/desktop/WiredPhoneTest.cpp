/// The phone of a window whose sound a server makes that is a few numbers.
#include "simulator/desktop/WiredPhone.h"

#include "simulator/LinkedLibrary.h"
#include "simulator/desktop/OverlayPlan.h"
#include "simulator/device/AudioService.h"
#include "simulator/picture/ShownMixer.h"
#include "tests/unit/desktop/NumbersServer.h"
#include "tests/unit/preferences/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <optional>
#include <string>

namespace panotra::testing {
namespace {

using namespace std::chrono_literals;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

class WiredPhoneTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        wired.emplace(sim::WiredPhone::Setup { .preferencesFolder = folder.path(),
                          .complain =
                              [](const std::string& line) {
                                  FAIL() << line;
                              } },
            sim::loadedLibrary(), server);
        wired->session().beginRecording([this](std::string_view text) { recorded += text; });
        turn();
    }

    void turn()
    {
        wired->mixer().turn();
        wired->mixer().turn(); // the answer to what was set
    }
    void play(std::initializer_list<const char*> lines)
    {
        for (const char* const line : lines)
            wired->session().play(line);
        turn();
    }
    void change(float level)
    {
        server.heard().volumes = sound::volumesAt(level, server.heard().volumes);
        server.state.changed = ++server.serial;
        turn();
    }
    void plug(const char* output)
    {
        server.state.defaultOutput = output;
        turn();
    }
    float heard() { return sound::levelOf(server.heard().volumes); }
    double sliderOfSpeaker()
    {
        sim::Device& device = wired->session().device();
        return sim::levelOf(device, sim::sliderOf(device, 0));
    }

    preferences::testing::TemporaryFolder folder;
    NumbersServer server;
    std::optional<sim::WiredPhone> wired;
    std::string recorded;
};

TEST_F(WiredPhoneTest, ItsVolumeButtonsSetTheServer)
{
    play({ "press up", "release up" });
    EXPECT_EQ(heard(), 0.5625f);
    play({ "press down", "release down", "press down", "release down" });
    EXPECT_EQ(heard(), 0.4375f);
    EXPECT_THAT(server.told, ElementsAre(0.5625f, 0.4375f));
}

TEST_F(WiredPhoneTest, ItsSlidersSetTheServer)
{
    wired->present();
    wired->session().advance(500ms);
    ASSERT_EQ(sliderOfSpeaker(), 0.5);
    play({ "pan 0 began 10", "pan 0 changed 20", "pan 0 ended 20" });
    EXPECT_LT(heard(), 0.5f);
    EXPECT_NEAR(sliderOfSpeaker(), heard(), 1.0 / sound::fullVolume) << "to a step of the server's scale";
}

TEST_F(WiredPhoneTest, WhatHappensAtTheServerIsSeenOnThePhone)
{
    wired->present();
    wired->session().advance(500ms);
    change(0.25f);
    EXPECT_EQ(sliderOfSpeaker(), 0.25);
    EXPECT_TRUE(wired->phone().isActive("Speaker"));
    plug("air-set");
    EXPECT_TRUE(wired->phone().isActive("HeadsetBT"));
    server.state.streams = { { 1, server.heard().index, "phone", false } };
    turn();
    EXPECT_TRUE(wired->phone().isInCall());
    EXPECT_EQ(wired->phone().category(), "PhoneCall");
    EXPECT_THAT(server.told, IsEmpty());
    change(0.75f);
    plug("box");
    server.state.streams.clear();
    turn();
    server.state.streams = { { 2, server.heard().index, "music", false } };
    turn();
    EXPECT_EQ(heard(), 0.25f) << "put back";
}

TEST_F(WiredPhoneTest, ASecondStartShowsTheMixerAndNeverSendsItAway)
{
    EXPECT_EQ(sim::viewToShow(wired->session().device()), nullptr);
    for (int start = 0; start < 2; ++start) {
        wired->present();
        wired->session().advance(500ms);
        EXPECT_NE(sim::viewToShow(wired->session().device()), nullptr);
    }
}

TEST_F(WiredPhoneTest, LevelsThatWereTakenOverAreNoChangeOfTheSettings)
{
    server.state.outputs[2].volumes = { sound::fullVolume / 4 };
    plug("phones");
    wired->session().lookForForeignChanges();
    EXPECT_THAT(recorded,
        HasSubstr("\npref net.qorvath.panotra volume1 float 0.25\nunpref net.qorvath.panotra.desktop volume1\n"
                  "route Headphone\n"));
    EXPECT_THAT(recorded, Not(HasSubstr("notify ")));
}

TEST_F(WiredPhoneTest, AnOutputOfAnyKindIsShown)
{
    server.heard().traits.formFactor = "a \"kind\"\nof its own";
    turn();
    EXPECT_THAT(recorded, HasSubstr("\nroute nil\n"));
    plug("screen");
    EXPECT_THAT(recorded, HasSubstr("\nroute tv\n"));
}

TEST_F(WiredPhoneTest, ARecordingPlaysToTheSameLevelsWithoutAServer)
{
    change(0.25f);
    plug("phones");
    change(0.75f);
    play({ "press up" });
    wired->session().advance(2s);
    plug("box");
    ASSERT_EQ(heard(), 0.25f);
    plug("phones");
    ASSERT_EQ(heard(), 0.8125f);
    wired->session().endRecording();
    wired.reset();

    sim::Device device;
    sim::Player(device, sim::loadedLibrary(), {}).play(sim::parseScenario(recorded));
    EXPECT_EQ(device.audio->route, "Headphone");
    EXPECT_EQ(device.audio->activeCategory, "Audio/Video");
    EXPECT_EQ(device.audio->level("Audio/Video"), 0.8125f);
}

} // namespace
} // namespace panotra::testing
