/// Style, skin and size of a mixer that is shown.
#include "tests/unit/window/SessionFixture.h"

namespace panotra::sim {
namespace {

using namespace std::chrono_literals;

using ::testing::HasSubstr;
using ::testing::Not;
using testing::ownDomain;

class LooksAnewTest : public testing::SessionFixture {
protected:
    LooksAnewTest()
    {
        start();
        newLines();
    }
    void pass(std::chrono::microseconds time)
    {
        constexpr auto frame = 20ms;
        for (; time > 0us; time -= frame)
            session->advance(frame);
    }
    bool isShown() { return session->device().home->window() != nullptr; }
};

TEST_F(LooksAnewTest, AMixerThatWasAskedForIsShownAnewAndStays)
{
    session->play("activator net.qorvath.panotra.presentmixer");
    pass(1s);
    newLines();
    session->set(ownDomain, "mixerSkin", 2);
    EXPECT_EQ(newLines(),
        "wait 1\npref net.qorvath.panotra mixerSkin int 2\nnotify net.qorvath.panotra.settingschanged\n"
        "activator net.qorvath.panotra.dismissmixer\n");
    pass(1s);
    EXPECT_EQ(newLines(), "wait 0.4\nactivator net.qorvath.panotra.presentmixer\n");
    pass(10s);
    EXPECT_TRUE(isShown());
}

TEST_F(LooksAnewTest, OneThatCameWithAPressGoesAwayByItselfAgain)
{
    session->play("press up");
    session->play("release up");
    pass(1s);
    session->set(ownDomain, "activeStyle", 1);
    pass(1s);
    EXPECT_THAT(newLines(), HasSubstr("dismissmixer\nwait 0.4\nannounce Audio/Video ExplicitVolumeChange 0.625\n"));
    EXPECT_TRUE(isShown());
    pass(3s);
    EXPECT_FALSE(isShown());
}

TEST_F(LooksAnewTest, AFadeInIsWaitedFor)
{
    session->play("activator net.qorvath.panotra.presentmixer");
    session->set(ownDomain, "scale", 1.0);
    EXPECT_THAT(newLines(), Not(HasSubstr("dismissmixer")));
    pass(2s);
    EXPECT_THAT(newLines(), HasSubstr("dismissmixer\nwait 0.4\nactivator"));
    EXPECT_TRUE(isShown());
}

TEST_F(LooksAnewTest, WithoutAMixerAndForOtherSettingsNothingIsShown)
{
    session->set(ownDomain, "mixerSkin", 1);
    pass(1s);
    session->play("activator net.qorvath.panotra.presentmixer");
    pass(1s);
    session->set(ownDomain, "handleShake", true);
    pass(1s);
    EXPECT_THAT(newLines(), Not(HasSubstr("dismissmixer")));
}

TEST_F(LooksAnewTest, WhatAnotherProcessChangesIsSeenAtOnceAsWell)
{
    session->play("activator net.qorvath.panotra.presentmixer");
    pass(1s);
    writeElsewhere("scale", 0.7);
    session->lookForForeignChanges();
    pass(1s);
    EXPECT_THAT(newLines(), HasSubstr("dismissmixer\nwait 0.4\nactivator net.qorvath.panotra.presentmixer\n"));
}

} // namespace
} // namespace panotra::sim
