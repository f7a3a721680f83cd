/// What a person does to the phone, in lines.
#include "simulator/window/Phone.h"
#include "tests/unit/window/SessionFixture.h"

#include <cmath>
#include <limits>

namespace panotra::sim {
namespace {

using namespace std::chrono_literals;

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class PhoneTest : public testing::SessionFixture {
protected:
    PhoneTest()
        : phone(start().device())
    {
    }

    /// Plays the lines and answers them.
    Lines played(Lines lines)
    {
        session->playAll(lines);
        return lines;
    }

    Phone phone;
};

TEST_F(PhoneTest, AnAccessoryIsPluggedInAndUnplugged)
{
    EXPECT_THAT(
        played(phone.useRoute("Headphone")), ElementsAre("route Headphone", "announce Audio/Video RouteChange 0.5625"));
    EXPECT_TRUE(phone.isPluggedIn("Headphone"));
    EXPECT_TRUE(phone.isActive("Headphone"));
    EXPECT_THAT(played(phone.useRoute("Headphone"))[0], "route Speaker");
    EXPECT_FALSE(phone.isPluggedIn("Headphone"));
}

TEST_F(PhoneTest, TheAccessoryBeforeIsBackWhenTheLastOneIsUnplugged)
{
    played(phone.useRoute("Headphone"));
    played(phone.useRoute("HeadsetBT"));
    EXPECT_TRUE(phone.isActive("HeadsetBT"));
    EXPECT_THAT(played(phone.useRoute("HeadsetBT"))[0], "route Headphone");
}

TEST_F(PhoneTest, AnAccessoryThatIsNotHeardIsUnpluggedWithoutASound)
{
    played(phone.useRoute("Headphone"));
    played(phone.useRoute("Speaker"));
    EXPECT_TRUE(phone.isPluggedIn("Headphone"));
    EXPECT_THAT(phone.useRoute("Headphone"), IsEmpty());
}

TEST_F(PhoneTest, ALevelBeyondAllNumbersIsAnnouncedAsNone)
{
    writeElsewhere("volume1", 1e39); // as a float it is infinite
    session->lookForForeignChanges();
    played(phone.useRoute("Headphone"));
    ASSERT_EQ(session->device().audio->level("Audio/Video"), std::numeric_limits<float>::infinity());
    EXPECT_THAT(
        played(phone.useRoute("Headphone")), ElementsAre("route Speaker", "announce Audio/Video RouteChange nil"));
}

TEST_F(PhoneTest, ACallGoesToTheEarAndEndsInTheRoom)
{
    EXPECT_THAT(played(phone.beginOrEndCall()),
        ElementsAre("category PhoneCall", "route Receiver", "announce PhoneCall CategoryChange 0.625"));
    EXPECT_TRUE(phone.isInCall());
    EXPECT_THAT(played(phone.beginOrEndCall()),
        ElementsAre("category Audio/Video", "route Speaker", "announce Audio/Video CategoryChange 0.5625"));
    EXPECT_FALSE(phone.isInCall());
}

TEST_F(PhoneTest, ACallStaysOnTheHeadset)
{
    played(phone.useRoute("Headset"));
    EXPECT_THAT(
        played(phone.beginOrEndCall()), ElementsAre("category PhoneCall", "announce PhoneCall CategoryChange 0.625"));
    EXPECT_THAT(played(phone.useRoute("Headset"))[0], "route Receiver") << "there is nothing else in a call";
}

TEST_F(PhoneTest, WhereOthersChooseTheSoundThePhoneShowsItAndChoosesNone)
{
    Phone other(session->device(), SoundChoice::Others);
    EXPECT_THAT(other.useRoute("Headphone"), IsEmpty());
    EXPECT_THAT(other.nextCategory(), IsEmpty());
    EXPECT_THAT(other.beginOrEndCall(), IsEmpty());
    EXPECT_FALSE(other.isInCall());
    played({ "route HeadsetBT", "category PhoneCall" });
    EXPECT_TRUE(other.isActive("HeadsetBT"));
    EXPECT_TRUE(other.isInCall());
}

TEST_F(PhoneTest, FourTurnsAreNone)
{
    std::vector<std::string> seen;
    for (int turn = 0; turn < 4; ++turn) {
        played(phone.turn());
        seen.push_back(phone.orientation());
    }
    EXPECT_THAT(seen, ElementsAre("left", "upside down", "right", "upright"));
    EXPECT_THAT(phone.turn(), ElementsAre("orientation 3", "statusbar-frame UIStatusBar 0 0 667 20"));
}

TEST_F(PhoneTest, CategoriesGoRound)
{
    const std::string first = phone.category();
    int steps = 0;
    do {
        played(phone.nextCategory());
        ++steps;
    } while (phone.category() != first && steps < 10);
    EXPECT_EQ(steps, 5);
}

TEST_F(PhoneTest, AShakenPhoneShakesForHalfASecond)
{
    EXPECT_EQ(phone.shakeOffset(), 0);
    played(phone.shake());
    session->advance(30ms);
    EXPECT_TRUE(phone.isShaking());
    EXPECT_GT(std::abs(phone.shakeOffset()), 1);
    session->advance(500ms);
    EXPECT_FALSE(phone.isShaking());
    EXPECT_EQ(phone.shakeOffset(), 0);
}

TEST_F(PhoneTest, TheScreenTellsOfItsStateWhenItIsSwitched)
{
    const std::string name = "com.apple.springboard.screenchanged";
    EXPECT_THAT(phone.switchScreen(), ElementsAre("darwin " + name + " 0", "notify " + name));
    EXPECT_FALSE(phone.isScreenOn());
    EXPECT_THAT(phone.switchScreen(), ElementsAre("darwin " + name + " 1", "notify " + name));
}

} // namespace
} // namespace panotra::sim
