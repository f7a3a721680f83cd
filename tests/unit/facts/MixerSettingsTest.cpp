/// The settings, row by row, and the names that other programs know.
#include "facts/MixerSettings.h"
#include "facts/AudioNames.h"
#include "facts/GestureStates.h"
#include "facts/PublicNames.h"
#include "tests/support/KnownFacts.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace panotra {
namespace {

using ::testing::ElementsAreArray;

TEST(MixerSettings, EachHasTheDomainValueAndNotificationOfItsKey)
{
    ASSERT_EQ(mixerSettings.size(), std::size(testing::knownSettings));
    for (std::size_t i = 0; i < mixerSettings.size(); ++i) {
        const testing::KnownSetting& known = testing::knownSettings[i];
        EXPECT_STREQ(mixerSettings[i].key, known.key);
        EXPECT_STREQ(mixerSettings[i].valueName, known.value);
        EXPECT_STREQ(mixerSettings[i].domain, known.domain);
        EXPECT_STREQ(mixerSettings[i].changeNotification(), known.notification);
        EXPECT_EQ(mixerSettings[i].absentValue, known.absent) << known.key;
    }
}

TEST(PublicNames, AreThoseThatOtherProgramsKnow)
{
    EXPECT_STREQ(homeScreenBundle, "com.apple.springboard");
    EXPECT_STREQ(notification::shakeState, "net.qorvath.panotra.shake");
    EXPECT_STREQ(notification::ownShaken, "net.qorvath.panotra.uikitshaken");
    EXPECT_STREQ(notification::siblingShaken, "net.qorvath.brevane2.uikitshaken");
    EXPECT_STREQ(notification::screenChanged, "com.apple.springboard.screenchanged");
    const std::string_view listeners[] = { listener::present, listener::dismiss, listener::toggle };
    EXPECT_THAT(listeners, ElementsAreArray(testing::knownListeners));
}

TEST(AudioNames, AreThoseOfTheAudioService)
{
    EXPECT_THAT(audioCategories, ElementsAreArray(testing::knownCategories));
    EXPECT_STREQ(changeReason::explicitChange, "ExplicitVolumeChange");
    EXPECT_STREQ(changeReason::category, "CategoryChange");
    EXPECT_STREQ(changeReason::route, "RouteChange");
    EXPECT_STREQ(announcementKey::category, "AudioCategory");
    EXPECT_STREQ(announcementKey::reason, "AudioVolumeChangeReason");
    EXPECT_STREQ(announcementKey::level, "AudioVolume");
}

TEST(GestureStates, HaveTheNumbersOfThePlatform)
{
    EXPECT_STREQ(gestureStateNames[0], "possible");
    EXPECT_STREQ(gestureStateNames[1], "began");
    EXPECT_STREQ(gestureStateNames[5], "failed");
    EXPECT_EQ(stateNumber(UIGestureRecognizerState::Began), 1);
    EXPECT_EQ(stateNumber(UIGestureRecognizerState::Changed), 2);
    EXPECT_EQ(stateNumber(UIGestureRecognizerState::Ended), 3);
    EXPECT_EQ(stateNumber(UIGestureRecognizerState::Cancelled), 4);
}

} // namespace
} // namespace panotra
