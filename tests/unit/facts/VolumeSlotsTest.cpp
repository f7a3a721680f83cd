/// The slot map: every row of its table, and the deliberate differences between its users.
#include "facts/VolumeSlots.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

namespace panotra {
namespace {

struct Row {
    SlotNumber slot;
    const char* category;
    const char* route;
    const char* key;
    const char* seed;
};

/// Every pair that a slot takes.
constexpr Row rows[] = {
    { 11, "Audio/Video", "Receiver", "volume11", "Audio/Video" },
    { 0, "Audio/Video", "Speaker", "volume0", "Audio/Video" },
    { 1, "Audio/Video", "Headphone", "volume1", "Audio/Video" },
    { 1, "Audio/Video", "Headset", "volume1", "Audio/Video" },
    { 2, "Audio/Video", "HeadphonesBT", "volume2", "Audio/Video" },
    { 2, "Audio/Video", "HeadsetBT", "volume2", "Audio/Video" },
    { 3, "PhoneCall", "Receiver", "volume3", "PhoneCall" },
    { 4, "PhoneCall", "Speaker", "volume4", "PhoneCall" },
    { 5, "PhoneCall", "Headphone", "volume5", "PhoneCall" },
    { 5, "PhoneCall", "Headset", "volume5", "PhoneCall" },
    { 6, "PhoneCall", "HeadphonesBT", "volume6", "PhoneCall" },
    { 6, "PhoneCall", "HeadsetBT", "volume6", "PhoneCall" },
    { 7, "Ringtone", "Speaker", "volume7", "Ringtone" },
    { 7, "Ringtone", "Headphone", "volume7", "Ringtone" },
    { 7, "Ringtone", "", "volume7", "Ringtone" },
    { 8, "Alarm", "Receiver", "volume8", "Alarm" },
    { 8, "Alarm", "", "volume8", "Alarm" },
    { 9, "Notifications", "Speaker", "volume9", "Ringtone" },
    { 9, "Notifications", "", "volume9", "Ringtone" },
    { 10, "VoiceCommand", "HeadsetBT", "volume10", "VoiceCommand" },
    { 10, "VoiceCommand", "", "volume10", "VoiceCommand" },
};

TEST(VolumeSlots, EveryPairHasTheSlotKeyAndSeedOfItsRow)
{
    for (const Row& row : rows) {
        SCOPED_TRACE(std::string(row.category) + " on " + row.route);
        EXPECT_EQ(slotToRead(row.category, row.route), row.slot);
        EXPECT_STREQ(volumeSlot(row.slot).preferenceKey, row.key);
        EXPECT_STREQ(volumeSlot(row.slot).seedCategory, row.seed);
        EXPECT_EQ(volumeSlot(row.slot).number, row.slot);
    }
}

TEST(VolumeSlots, SetterAndGetterAgreeOnEveryPairButNotifications)
{
    for (const Row& row : rows)
        EXPECT_EQ(slotToWrite(row.category, row.route), row.slot == 9 ? noSlot : row.slot) << row.category;
}

TEST(VolumeSlots, FocusPicksTheSameSlotExceptTheAlarmsForNotifications)
{
    for (const Row& row : rows)
        EXPECT_EQ(slotToFocus(row.category, row.route), row.slot == 9 ? 8 : row.slot) << row.category;
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

TEST(VolumeSlots, MediaThroughTheEarpieceComesFirstAndTheRestFollowByNumber)
{
    ASSERT_EQ(volumeSlots.front().number, 11);
    for (std::size_t i = 1; i < volumeSlots.size(); ++i)
        EXPECT_EQ(volumeSlots[i].number, i - 1);
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

/// Captions, images, groups and zero flags of the view tree, in the order of creation.
TEST(VolumeSlots, SlidersCarryTheNamesAndImagesOfTheViewTree)
{
    struct Slider {
        SlotNumber slot;
        Group group;
        const char* name;
        const char* image;
        bool canGoToZero;
    };
    constexpr Slider sliders[] = {
        { 11, Group::Media, "Receiver", "receiver", true },
        { 0, Group::Media, "Speaker", "speaker", true },
        { 1, Group::Media, "Headphones", "headphone", true },
        { 2, Group::Media, "HeadphonesBT", "headphonebt", true },
        { 3, Group::PhoneCall, "Receiver", "receiver", false },
        { 4, Group::PhoneCall, "Speaker", "speaker", false },
        { 5, Group::PhoneCall, "Headset", "headset", false },
        { 6, Group::PhoneCall, "HeadsetBT", "headsetbt", false },
        { 7, Group::Extras, "Ringtone", "ringer", false },
        { 8, Group::Extras, "Alarm", "alarm", false },
        { 9, Group::Extras, "Notifications", "notification", false },
        { 10, Group::Extras, "Siri", "siri", false },
    };
    for (std::size_t i = 0; i < std::size(sliders); ++i) {
        const VolumeSlot& slot = volumeSlots[i];
        EXPECT_EQ(slot.number, sliders[i].slot);
        EXPECT_EQ(slot.group, sliders[i].group);
        EXPECT_STREQ(slot.name, sliders[i].name);
        EXPECT_STREQ(slot.image, sliders[i].image);
        EXPECT_EQ(slot.canGoToZero, sliders[i].canGoToZero);
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
