/// The slot map: every row of its table, and the deliberate differences between its users.
#include "facts/VolumeSlots.h"
#include "tests/support/KnownFacts.h"

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

namespace panotra {
namespace {

using testing::knownPairs;
using testing::knownSliders;

/// The routes of a pair: its own, or several where the route does not matter.
std::vector<std::string> routesOf(const testing::KnownPair& pair)
{
    if (pair.route != nullptr)
        return { pair.route };
    return { "", "Receiver", "Speaker", "Headphone", "HeadsetBT", "AirTunes" };
}

TEST(VolumeSlots, EveryPairHasItsSlot)
{
    for (const testing::KnownPair& pair : knownPairs) {
        for (const std::string& route : routesOf(pair)) {
            SCOPED_TRACE(std::string(pair.category) + " on " + route);
            EXPECT_EQ(slotToRead(pair.category, route), pair.slot);
            EXPECT_EQ(slotToWrite(pair.category, route), pair.slot == 9 ? noSlot : pair.slot)
                << "the setter knows every pair but that of the notifications";
            EXPECT_EQ(slotToFocus(pair.category, route), pair.slot == 9 ? 8 : pair.slot)
                << "the alarm's slider swells for notifications";
        }
    }
}

TEST(VolumeSlots, UnknownCategoriesAndRoutesHaveNoSlotAnywhere)
{
    constexpr std::pair<const char*, const char*> unknown[] = { { "audio/video", "Speaker" }, { "AUDIO/VIDEO", "" },
        { "Audio/Video ", "Speaker" }, { "Audio/Video", "AirTunes" }, { "Audio/Video", "" },
        { "Audio/Video", "speaker" }, { "PhoneCall", "AirTunes" }, { "PhoneCall", "" }, { "", "" }, { "", "Speaker" },
        { "Video", "Speaker" }, { "ringtone", "" }, { "Voicecommand", "" } };
    for (const auto& [category, route] : unknown) {
        SCOPED_TRACE(std::string(category) + " on " + route);
        EXPECT_EQ(slotToRead(category, route), noSlot);
        EXPECT_EQ(slotToWrite(category, route), noSlot);
        EXPECT_EQ(slotToFocus(category, route), noSlot);
    }
}

TEST(VolumeSlots, EachGroupHoldsFourSlidersInItsFourCells)
{
    std::set<std::pair<Group, Cell>> places;
    for (const VolumeSlot& slot : volumeSlots)
        places.emplace(slot.group, slot.cell);
    EXPECT_EQ(places.size(), volumeSlotCount);
    for (const auto& [group, cell] : places)
        EXPECT_LT(cell, cellsPerGroup);
}

/// The order is also that in which sliders are made: media through the earpiece first, the rest by number.
TEST(VolumeSlots, SlotsHaveTheKeysSeedsAndSlidersOfTheirNumbersInTheOrderOfTheViewTree)
{
    ASSERT_EQ(volumeSlots.size(), std::size(knownSliders));
    for (std::size_t i = 0; i < volumeSlots.size(); ++i) {
        const VolumeSlot& slot = volumeSlots[i];
        const testing::KnownSlider& known = knownSliders[i];
        EXPECT_EQ(slot.number, known.slot);
        EXPECT_EQ(&volumeSlot(slot.number), &slot);
        EXPECT_STREQ(slot.preferenceKey, known.key);
        EXPECT_STREQ(slot.seedCategory, known.seed);
        EXPECT_EQ(static_cast<int>(slot.group), known.group);
        EXPECT_STREQ(slot.name, known.name);
        EXPECT_STREQ(slot.image, known.image);
        EXPECT_EQ(slot.canGoToZero, known.canGoToZero);
    }
}

TEST(VolumeSlots, TheBannerLaysSliderSixOutWithTheLevelOfSliderFive)
{
    for (const VolumeSlot& slot : volumeSlots)
        EXPECT_EQ(slot.bannerLevelSlot, slot.number == 6 ? 5 : slot.number);
}

TEST(VolumeSlots, OnlyTheNotificationsSliderNeverReachesTheSystem)
{
    for (const VolumeSlot& slot : volumeSlots)
        EXPECT_EQ(slot.dragSetsSystemVolume, slot.number != 9);
}

} // namespace
} // namespace panotra
