/// The mixer on a computer whose sound server is a few numbers: what is remembered, put back, and left alone.
#include "simulator/desktop/DesktopMixer.h"

#include "simulator/desktop/DesktopStatus.h"
#include "tests/support/HomeScreenTest.h"
#include "tests/support/KnownFacts.h"
#include "tests/unit/desktop/NumbersServer.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <optional>

namespace panotra::testing {
namespace {

using sound::ChannelVolumes;
using sound::fullVolume;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

class DesktopMixerTest : public HomeScreenTest {
protected:
    void begin(float limit = 1)
    {
        launch();
        mixer.emplace(device, server, limit, [this](const std::string& line) { lines.push_back(line); });
        turn();
    }
    void TearDown() override
    {
        mixer.reset();
        HomeScreenTest::TearDown();
    }

    void turn() { mixer->turn(); }
    /// The person changes the volume; the answer to a set of ours has been seen before.
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
        turn();
    }
    void play(const char* role)
    {
        server.state.streams = { { ++stream, server.heard().index, role, false } };
        turn();
        turn();
    }
    float heard() { return sound::levelOf(server.heard().volumes); }
    std::optional<float> remembered(SlotNumber slot) { return mixer->levels().remembered(slot); }

    NumbersServer server;
    std::optional<sim::DesktopMixer> mixer;
    std::vector<std::string> lines;
    std::uint32_t stream = 0;
};

TEST_F(DesktopMixerTest, TheFirstStartChangesNothingAndRemembersWhatIsHeard)
{
    begin();
    turn();
    EXPECT_THAT(server.told, IsEmpty());
    EXPECT_EQ(remembered(0), 0.5f);
    for (SlotNumber slot = 1; slot < knownSlotCount; ++slot)
        EXPECT_EQ(remembered(slot), std::nullopt) << int { slot };
}

TEST_F(DesktopMixerTest, EveryPairIsPutBack)
{
    begin();
    struct Output {
        const char* name;
        const char* route;
    };
    constexpr Output outputs[] = { { "box", "Speaker" }, { "ear", "Receiver" }, { "phones", "Headphone" },
        { "set", "Headset" }, { "air", "HeadphonesBT" }, { "air-set", "HeadsetBT" } };
    struct Role {
        const char* name;
        const char* category;
    };
    constexpr Role roles[] = { { "music", "Audio/Video" }, { "phone", "PhoneCall" }, { "assistant", "VoiceCommand" },
        { "alarm", "Alarm" } };
    std::vector<std::optional<float>> expected(knownSlotCount);
    float level = 0.1f;
    for (const bool isSecondRound : { false, true }) {
        for (const Output& output : outputs) {
            for (const Role& role : roles) {
                plug(output.name);
                play(role.name);
                const auto slot = slotToRead(role.category, output.route);
                if (expected[slot]) {
                    EXPECT_EQ(heard(), *expected[slot]) << role.name << " on " << output.name;
                }
                if (isSecondRound)
                    continue;
                level += 0.03125f;
                expected[slot] = sound::levelOf(sound::volumesAt(level, { 1 }));
                change(level);
                EXPECT_EQ(remembered(slot), expected[slot]);
            }
        }
    }
}

TEST_F(DesktopMixerTest, WhatWasNeverRememberedIsTakenOverAndNotSet)
{
    begin();
    change(0.25f);
    server.state.outputs[2].volumes = { fullVolume, fullVolume };
    plug("phones");
    EXPECT_THAT(server.told, IsEmpty());
    EXPECT_EQ(heard(), 1.0f);
    EXPECT_EQ(remembered(1), 1.0f);
    EXPECT_EQ(remembered(5), std::nullopt) << "no call was heard there";
}

TEST_F(DesktopMixerTest, AMixerThatWasOnScreenMakesNoLevelRemembered)
{
    store("replaceHUD", true);
    begin();
    change(0.25f);
    ASSERT_NE(device.home->window(), nullptr);
    server.state.outputs[2].volumes = { 6554, 6554 };
    plug("phones");
    EXPECT_THAT(server.told, IsEmpty()) << "the slider stood where the speakers are";
    EXPECT_EQ(remembered(1), 6554.0f / 65536);
    EXPECT_EQ(slider(1).volume(), 6554.0 / 65536);
    pass(10);
    ASSERT_EQ(device.home->window(), nullptr);
    play("phone");
    EXPECT_THAT(server.told, IsEmpty()) << "what the mixer wrote for its sliders was nobody's choice";
    EXPECT_EQ(remembered(5), 6554.0f / 65536);
    EXPECT_EQ(remembered(0), 0.25f);
}

TEST_F(DesktopMixerTest, AChangeOfTheOutputAndOfWhatPlaysAtOnceIsOnePush)
{
    begin();
    play("phone");
    plug("phones");
    change(0.75f);
    plug("box");
    play("music");
    plug("phones");
    change(0.25f);
    plug("box");
    server.told.clear();
    server.state.defaultOutput = "phones";
    play("phone");
    EXPECT_THAT(server.told, ElementsAre(0.75f));
}

TEST_F(DesktopMixerTest, WhatIsKnownOfTheOutputAloneIsNotPutBackForACallThatNeverWas)
{
    begin();
    plug("phones");
    change(0.75f);
    plug("box");
    server.told.clear();
    server.state.outputs[2].volumes = { 999, 999 };
    server.state.defaultOutput = "phones";
    play("phone");
    EXPECT_THAT(server.told, IsEmpty());
    EXPECT_EQ(remembered(5), 999.0f / 65536);
    EXPECT_EQ(remembered(1), 0.75f);
}

TEST_F(DesktopMixerTest, ThePushNeverExceedsTheLimitAndWhatIsRememberedStays)
{
    begin(0.3f);
    change(0.75f);
    EXPECT_EQ(heard(), 0.75f) << "a person may";
    play("phone");
    change(0.125f);
    play("music");
    EXPECT_EQ(heard(), sound::levelOf(sound::volumesAt(0.3f, { 1 })));
    EXPECT_EQ(remembered(0), 0.75f);
    play("phone");
    EXPECT_EQ(heard(), 0.125f);
}

TEST_F(DesktopMixerTest, WhoeverTakesAPushBackIsObeyedAndNotFought)
{
    begin();
    change(0.25f);
    plug("phones");
    plug("box");
    server.told.clear();
    plug("phones");
    change(0.375f);
    plug("box");
    for (int i = 0; i < 5; ++i)
        change(0.875f);
    EXPECT_EQ(heard(), 0.875f);
    EXPECT_EQ(remembered(0), 0.875f);
    EXPECT_THAT(server.told, IsEmpty());
}

TEST_F(DesktopMixerTest, ACallThatEndsBeforeTheServerAnswersLeavesNoLevelBehind)
{
    begin();
    change(0.25f);
    play("phone");
    change(0.75f);
    play("music");
    server.told.clear();
    server.isSlow = true;
    play("phone");
    play("music");
    server.finish();
    server.isSlow = false;
    turn();
    EXPECT_THAT(server.told, ElementsAre(0.75f, 0.25f));
    EXPECT_EQ(heard(), 0.25f);
    EXPECT_EQ(remembered(0), 0.25f);
}

TEST_F(DesktopMixerTest, WhoeverChangesTheVolumeWhileAPutBackWaitsIsObeyed)
{
    begin();
    change(0.25f);
    play("phone");
    change(0.75f);
    play("alarm");
    change(0.125f);
    server.told.clear();
    server.isSlow = true;
    play("phone");
    play("music");
    EXPECT_THAT(server.told, ElementsAre(0.75f)) << "the put-back for music waits for the answer";
    server.finish();
    server.isSlow = false;
    change(0.5f);
    turn();
    EXPECT_EQ(heard(), 0.5f);
    EXPECT_THAT(server.told, ElementsAre(0.75f));
    EXPECT_EQ(remembered(0), 0.5f);
    play("phone");
    EXPECT_EQ(server.told.back(), 0.75f) << "what plays next is put back as ever";
}

TEST_F(DesktopMixerTest, WhatAPersonChoseInTheMixerMeanwhileIsStillSet)
{
    begin();
    server.isSlow = true;
    device.home->setVolume("Audio/Video", 0.75f);
    mixer->send();
    device.home->setVolume("Audio/Video", 0.875f);
    mixer->send();
    EXPECT_THAT(server.told, ElementsAre(0.75f));
    server.finish();
    change(0.25f);
    EXPECT_THAT(server.told, ElementsAre(0.75f, 0.875f));
}

TEST_F(DesktopMixerTest, NothingIsRememberedForAnOutputWithoutASlotNorSet)
{
    begin();
    for (const char* const role : { "music", "alarm", "assistant", "phone" }) {
        plug("box");
        play(role);
        change(0.25f);
        server.told.clear();
        const std::string before = sim::statusOf(*mixer);
        plug("screen");
        play(role);
        change(0.9375f);
        EXPECT_EQ(heard(), 0.9375f);
        EXPECT_THAT(server.told, IsEmpty()) << role;
        plug("box");
        EXPECT_EQ(sim::statusOf(*mixer), before) << role;
    }
}

TEST_F(DesktopMixerTest, AnInactiveCategoryKeepsALevelOfItsOwn)
{
    begin();
    device.home->setVolume("PhoneCall", 0.125f);
    mixer->send();
    EXPECT_THAT(server.told, IsEmpty());
    EXPECT_EQ(mixer->audio().level("PhoneCall"), 0.125f);
    device.home->setVolume("Audio/Video", 0.25f);
    mixer->send();
    EXPECT_THAT(server.told, ElementsAre(0.25f));
}

TEST_F(DesktopMixerTest, ALevelThatIsNoNumberOrOutOfRangeIsInRange)
{
    begin();
    for (const float level : { 2.0f, -1.0f, std::numeric_limits<float>::quiet_NaN() }) {
        device.home->setVolume("Audio/Video", level);
        mixer->turn();
    }
    EXPECT_THAT(server.told, ElementsAre(1.0f, 0.0f));
}

TEST_F(DesktopMixerTest, TheMuteOfTheOutputIsNobodysBusiness)
{
    store("replaceHUD", true);
    begin();
    change(0.25f);
    EXPECT_THAT(shownText(7), Not(HasSubstr("Silent")));
    device.home->setRingerMuted(true);
    EXPECT_EQ(shownText(7), "Silent");
}

TEST_F(DesktopMixerTest, AServerThatIsLostIsToldOfOnceAndAnotherIsPutRight)
{
    begin();
    change(0.25f);
    server.reports.emplace_back(sound::Loss { "Connection refused" });
    server.state.outputs[0].volumes = { fullVolume, fullVolume };
    turn();
    EXPECT_THAT(lines, ElementsAre("the sound server is gone: Connection refused; waiting for it"));
    EXPECT_EQ(heard(), 0.25f);
}

TEST_F(DesktopMixerTest, TheStatusTellsWhatIsKnown)
{
    begin(0.5f);
    change(0.25f);
    plug("phones");
    EXPECT_EQ(sim::statusOf(*mixer),
        "Server: numbers 1\n"
        "Output: phones\n"
        "Route: Headphone\n"
        "Category: Audio/Video\n"
        "Level: 50% (32768 of 65536)\n"
        "Limit: 50% (32768 of 65536)\n"
        "Remembered:\n"
        "  Audio/Video, Speaker: 25% (16384 of 65536)\n"
        "  Audio/Video, Headphone or Headset: 50% (32768 of 65536)\n");
    plug("screen");
    EXPECT_THAT(sim::statusOf(*mixer), HasSubstr("Route: tv (nothing is remembered for it)\n"));
}

TEST_F(DesktopMixerTest, SilenceNeverBecomesAStandInThatHoldsBackAllSaving)
{
    server.heard().volumes = { 0, 0 };
    begin();
    EXPECT_EQ(stored("volume0"), 0.0);
    EXPECT_EQ(stored("volume1"), 0.0);
    for (SlotNumber slot = 3; slot <= 10; ++slot)
        EXPECT_EQ(stored("volume" + std::to_string(slot)), 0.0625) << int { slot };
    EXPECT_EQ(remembered(0), 0.0f);
}

TEST_F(DesktopMixerTest, WhatIsChosenByHandCountsAsRemembered)
{
    begin();
    device.preferences->set(ownDomain, "volume1", 0.125);
    plug("phones");
    EXPECT_EQ(heard(), 0.125f);
    device.preferences->unset(ownDomain, "volume0");
    server.told.clear();
    plug("box");
    EXPECT_THAT(server.told, IsEmpty());
    EXPECT_EQ(remembered(0), 0.5f);
}

} // namespace
} // namespace panotra::testing
