/// Snapshots in, announcements and sets out.
#include "simulator/sound/ServerReading.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace panotra::sound {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

const OutputRoute speaker { "Speaker", true };
const OutputRoute headphone { "Headphone", true };
const OutputRoute hdmi { "hdmi", false };

constexpr std::uint32_t half = fullVolume / 2;
constexpr std::uint32_t quarter = fullVolume / 4;

/// A server that a test changes by hand. Every question and every change gets its number.
class ServerReadingTest : public ::testing::Test {
protected:
    ServerReadingTest()
    {
        state.server = "test";
        state.defaultOutput = "box";
        state.outputs = { output(1, "box", "speaker"), output(2, "phones", "headphone"), output(3, "screen", "hdmi") };
    }

    static Output output(std::uint32_t index, const char* name, const char* formFactor)
    {
        return { index, { .name = name, .formFactor = formFactor }, "", { half, half } };
    }

    std::vector<Announcement> see()
    {
        state.asked = ++serial;
        return reading.see(state);
    }
    /// Sees what was there from the beginning.
    void begin() { see(); }

    void setVolume(std::size_t place, ChannelVolumes volumes)
    {
        state.outputs[place].volumes = std::move(volumes);
        state.changed = ++serial;
    }
    void play(std::uint32_t index, const char* role, std::uint32_t on = 1)
    {
        state.streams.push_back({ index, on, role, false });
    }

    /// What the server is told, which it does at once or later.
    std::optional<VolumeSet> tell(float level, Wish why = Wish::PutBack)
    {
        reading.wish(level, why);
        return reading.nextSet(++serial);
    }
    void carryOut(const VolumeSet& set)
    {
        for (std::size_t i = 0; i < state.outputs.size(); ++i) {
            if (state.outputs[i].index == set.output)
                setVolume(i, set.volumes);
        }
    }
    void answer(const VolumeSet& set, bool isDone = true) { reading.hear({ set.serial, ++serial, isDone }); }

    Snapshot state;
    ServerReading reading;
    Serial serial = 0;
};

TEST_F(ServerReadingTest, TheFirstSightIsAnOutput)
{
    EXPECT_THAT(see(), ElementsAre(Announcement { Reason::Route, "Audio/Video", speaker, 0.5f }));
    EXPECT_THAT(see(), IsEmpty());
}

TEST_F(ServerReadingTest, ALevelIsTheLoudestChannelAndAtMostFull)
{
    EXPECT_EQ(levelOf({ quarter, half }), 0.5f);
    EXPECT_EQ(levelOf({ 0, 0 }), 0.0f);
    EXPECT_EQ(levelOf({ fullVolume + 1 }), 1.0f);
    EXPECT_EQ(levelOf({}), 0.0f);
    EXPECT_EQ(levelOf({ 1 }), 1.0f / 65536);
}

TEST_F(ServerReadingTest, TheBalanceIsKept)
{
    EXPECT_EQ(volumesAt(0.25f, { half, quarter }), (ChannelVolumes { quarter, quarter / 2 }));
    EXPECT_EQ(volumesAt(1.0f, { 1, 3 }), (ChannelVolumes { 21845, 65536 }));
    EXPECT_EQ(volumesAt(0.5f, { 0, 0 }), (ChannelVolumes { half, half }));
    EXPECT_EQ(volumesAt(0.0f, { 7, 3 }), (ChannelVolumes { 0, 0 }));
}

TEST_F(ServerReadingTest, TheBalanceIsKeptThroughSilence)
{
    setVolume(0, { half, quarter });
    begin();
    setVolume(0, { 0, 0 });
    see();
    const auto set = tell(0.5f);
    ASSERT_TRUE(set);
    EXPECT_EQ(set->volumes, (ChannelVolumes { half, quarter }));
}

TEST_F(ServerReadingTest, EveryStepOfTheServersScaleIsToldAsItWasSeen)
{
    for (std::uint32_t volume = 0; volume <= fullVolume; ++volume)
        ASSERT_EQ(volumesAt(levelOf({ volume, volume }), { 9, 9 }), (ChannelVolumes { volume, volume }));
}

TEST_F(ServerReadingTest, SomebodysChangeIsExplicit)
{
    begin();
    setVolume(0, { quarter, quarter });
    EXPECT_THAT(see(), ElementsAre(Announcement { Reason::ExplicitVolume, "Audio/Video", speaker, 0.25f }));
    EXPECT_THAT(see(), IsEmpty());
}

TEST_F(ServerReadingTest, OnlyTheBalanceIsNoNewLevel)
{
    begin();
    setVolume(0, { half, quarter });
    EXPECT_THAT(see(), IsEmpty());
    const auto set = tell(0.25f);
    ASSERT_TRUE(set);
    EXPECT_EQ(set->volumes, (ChannelVolumes { quarter, quarter / 2 }));
}

TEST_F(ServerReadingTest, AboveFullCountsAsFullAndIsLeftAlone)
{
    begin();
    setVolume(0, { fullVolume + 1000, fullVolume });
    EXPECT_THAT(see(), ElementsAre(Announcement { Reason::ExplicitVolume, "Audio/Video", speaker, 1.0f }));
    EXPECT_FALSE(tell(0.5f));
    EXPECT_TRUE(reading.isAtRest());
    setVolume(0, { fullVolume, fullVolume });
    see();
    EXPECT_TRUE(tell(0.5f));
}

TEST_F(ServerReadingTest, WhoChoosesALevelIsHeardAlsoAboveFull)
{
    begin();
    setVolume(0, { fullVolume + 1000, fullVolume });
    see();
    EXPECT_TRUE(tell(0.5f, Wish::Chosen));
}

TEST_F(ServerReadingTest, WhoChoosesFullAboveFullHasItAlready)
{
    begin();
    setVolume(0, { fullVolume + 1000, fullVolume });
    see();
    EXPECT_FALSE(tell(1.0f, Wish::Chosen));
    EXPECT_TRUE(reading.isAtRest());
}

TEST_F(ServerReadingTest, AnotherOutputIsAnotherRouteWithItsOwnVolume)
{
    begin();
    setVolume(1, { quarter, quarter });
    EXPECT_THAT(see(), IsEmpty()) << "nobody hears that output";
    state.defaultOutput = "phones";
    EXPECT_THAT(see(), ElementsAre(Announcement { Reason::Route, "Audio/Video", headphone, 0.25f }));
}

TEST_F(ServerReadingTest, SeveralAtOnceComeAsVolumeRouteCategory)
{
    begin();
    setVolume(0, { quarter, quarter });
    state.defaultOutput = "phones";
    play(7, "phone", 2);
    EXPECT_THAT(see(),
        ElementsAre(Announcement { Reason::ExplicitVolume, "Audio/Video", speaker, 0.25f },
            Announcement { Reason::Route, "Audio/Video", headphone, 0.5f },
            Announcement { Reason::Category, "PhoneCall", headphone, 0.5f }));
}

TEST_F(ServerReadingTest, AVolumeThatComesWithAnotherPortIsNobodysChange)
{
    state.outputs[0].port = "analog-output-speaker";
    state.outputs[0].traits.portType = "speaker";
    begin();
    state.outputs[0].port = "analog-output-headphones";
    state.outputs[0].traits.portType = "headphones";
    setVolume(0, { quarter, quarter });
    EXPECT_THAT(see(), ElementsAre(Announcement { Reason::Route, "Audio/Video", headphone, 0.25f }));
}

TEST_F(ServerReadingTest, NothingIsSaidOfTheVolumeOfAnOutputWithoutASlotNorIsItSet)
{
    state.defaultOutput = "screen";
    EXPECT_THAT(see(), ElementsAre(Announcement { Reason::Route, "Audio/Video", hdmi, 0.5f }));
    setVolume(2, { quarter, quarter });
    EXPECT_THAT(see(), IsEmpty());
    EXPECT_FALSE(tell(0.75f));
    EXPECT_FALSE(tell(0.75f, Wish::Chosen));
}

TEST_F(ServerReadingTest, WithoutAnOutputNothingIsSaidUntilThereIsOne)
{
    begin();
    state.defaultOutput = "gone";
    EXPECT_THAT(see(), IsEmpty());
    EXPECT_FALSE(reading.route().hasSlot);
    EXPECT_FALSE(tell(0.75f));
    state.defaultOutput = "box";
    EXPECT_THAT(see(), ElementsAre(Announcement { Reason::Route, "Audio/Video", speaker, 0.5f }));
}

TEST_F(ServerReadingTest, ACallComesAboveAllThenWhatBeganLastAndSilenceKeepsTheLast)
{
    begin();
    play(1, "music");
    EXPECT_THAT(see(), IsEmpty());
    play(2, "alarm");
    EXPECT_THAT(see(), ElementsAre(Announcement { Reason::Category, "Alarm", speaker, 0.5f }));
    play(3, "phone");
    EXPECT_THAT(see(), ElementsAre(Announcement { Reason::Category, "PhoneCall", speaker, 0.5f }));
    play(4, "assistant");
    EXPECT_THAT(see(), IsEmpty()) << "the call goes on";
    std::erase_if(state.streams, [](const Stream& stream) { return stream.index == 3; });
    EXPECT_THAT(see(), ElementsAre(Announcement { Reason::Category, "VoiceCommand", speaker, 0.5f }));
    state.streams[0].isPaused = true;
    EXPECT_THAT(see(), IsEmpty());
    state.streams[0].isPaused = false;
    EXPECT_THAT(see(), ElementsAre(Announcement { Reason::Category, "Audio/Video", speaker, 0.5f }))
        << "the music began again";
    std::erase_if(state.streams, [](const Stream& stream) { return stream.index != 4; });
    EXPECT_THAT(see(), ElementsAre(Announcement { Reason::Category, "VoiceCommand", speaker, 0.5f }));
    state.streams.clear();
    EXPECT_THAT(see(), IsEmpty());
}

TEST_F(ServerReadingTest, NeitherEventsNorWhatPlaysElsewhereChangesTheCategory)
{
    begin();
    play(1, "event");
    play(2, "Notification");
    play(3, "phone", 2);
    EXPECT_THAT(see(), IsEmpty());
    state.defaultOutput = "phones";
    EXPECT_THAT(see(),
        ElementsAre(Announcement { Reason::Route, "Audio/Video", headphone, 0.5f },
            Announcement { Reason::Category, "PhoneCall", headphone, 0.5f }));
}

// Our own sets.

TEST_F(ServerReadingTest, OurOwnSetIsNoNewsWheneverItIsSeen)
{
    begin();
    const auto set = tell(0.25f);
    ASSERT_TRUE(set);
    EXPECT_EQ(set->output, 1U);
    EXPECT_THAT(see(), IsEmpty()) << "not yet carried out";
    answer(*set);
    EXPECT_THAT(see(), IsEmpty()) << "answered, and not yet to be seen";
    EXPECT_FALSE(reading.isAtRest());
    carryOut(*set);
    EXPECT_THAT(see(), IsEmpty());
    EXPECT_TRUE(reading.isAtRest());
    EXPECT_EQ(reading.level(), 0.25f);
}

TEST_F(ServerReadingTest, OurOwnSetIsKnownBeforeItsAnswer)
{
    begin();
    const auto set = tell(0.25f);
    carryOut(set.value());
    EXPECT_THAT(see(), IsEmpty());
    answer(*set);
    EXPECT_THAT(see(), IsEmpty());
    EXPECT_TRUE(reading.isAtRest());
}

TEST_F(ServerReadingTest, AServerThatRoundsByAStepIsUnderstood)
{
    begin();
    const auto set = tell(0.25f);
    setVolume(0, { quarter + 1, quarter - 1 });
    answer(set.value());
    EXPECT_THAT(see(), IsEmpty());
    EXPECT_TRUE(reading.isAtRest());
}

TEST_F(ServerReadingTest, AnotherVolumeThanOursIsSomebodys)
{
    begin();
    const auto set = tell(0.25f);
    carryOut(set.value());
    answer(*set);
    setVolume(0, { 999, 999 });
    EXPECT_THAT(see(), ElementsAre(Announcement { Reason::ExplicitVolume, "Audio/Video", speaker, 999.0f / 65536 }));
    EXPECT_TRUE(reading.isAtRest());
}

TEST_F(ServerReadingTest, SomebodyWhoTakesOurSetBackIsHeard)
{
    begin();
    const auto set = tell(0.25f);
    carryOut(set.value());
    setVolume(0, { half, half });
    EXPECT_THAT(see(), IsEmpty()) << "it may not be carried out yet";
    answer(*set);
    EXPECT_THAT(see(), ElementsAre(Announcement { Reason::ExplicitVolume, "Audio/Video", speaker, 0.5f }));
    EXPECT_TRUE(reading.isAtRest());
}

TEST_F(ServerReadingTest, WhereSomebodyCameInBetweenWhatIsHeardLastIsSaidLast)
{
    begin();
    const auto set = tell(0.25f);
    setVolume(0, { 999, 999 });
    EXPECT_THAT(see(), ElementsAre(Announcement { Reason::ExplicitVolume, "Audio/Video", speaker, 999.0f / 65536 }));
    carryOut(set.value());
    answer(*set);
    EXPECT_THAT(see(), ElementsAre(Announcement { Reason::ExplicitVolume, "Audio/Video", speaker, 0.25f }));
    EXPECT_TRUE(reading.isAtRest());
}

TEST_F(ServerReadingTest, OneSetIsOnItsWayAtATimeAndTheLastWishFollows)
{
    begin();
    const auto first = tell(0.25f);
    ASSERT_TRUE(first);
    EXPECT_FALSE(tell(0.3f));
    EXPECT_FALSE(tell(0.75f));
    answer(*first);
    const auto second = reading.nextSet(++serial);
    ASSERT_TRUE(second);
    EXPECT_EQ(levelOf(second->volumes), 0.75f);
    carryOut(*first);
    EXPECT_THAT(see(), IsEmpty());
    EXPECT_FALSE(reading.isAtRest());
    carryOut(*second);
    answer(*second);
    EXPECT_THAT(see(), IsEmpty());
    EXPECT_TRUE(reading.isAtRest());
}

TEST_F(ServerReadingTest, WhatIsSoAlreadyIsNotSet)
{
    begin();
    EXPECT_FALSE(tell(0.5f));
    const auto set = tell(0.25f);
    answer(set.value());
    EXPECT_FALSE(tell(0.25f)) << "it is on its way";
}

TEST_F(ServerReadingTest, ARefusedSetIsForgotten)
{
    begin();
    const auto set = tell(0.25f);
    answer(set.value(), false);
    EXPECT_TRUE(reading.isAtRest());
    EXPECT_THAT(see(), IsEmpty());
}

TEST_F(ServerReadingTest, AnotherOutputEndsWhatWasWishedForTheLast)
{
    begin();
    const auto set = tell(0.25f);
    ASSERT_TRUE(set);
    EXPECT_FALSE(tell(0.3f));
    state.defaultOutput = "phones";
    see();
    EXPECT_TRUE(reading.isAtRest());
    answer(*set);
    EXPECT_FALSE(reading.nextSet(++serial));
}

TEST_F(ServerReadingTest, AServerThatComesAgainIsARouteAndKeepsTheCategory)
{
    begin();
    play(1, "phone");
    see();
    tell(0.25f);
    reading.lose();
    EXPECT_FALSE(reading.isConnected());
    EXPECT_EQ(reading.output(), nullptr);
    EXPECT_TRUE(reading.isAtRest());
    state.streams.clear();
    EXPECT_THAT(see(), ElementsAre(Announcement { Reason::Route, "PhoneCall", speaker, 0.5f }));
}

} // namespace
} // namespace panotra::sound
