/// A mixer that is shown and dismissed again and again leaves nothing behind.
#include "tests/hosts/MixerHostTest.h"

namespace panotra::testing {

namespace {

const char* const classesOfTheMixer[]
    = { "PNOVolumeView", "PNOWindow", "UIView", "UIWindow", "UILabel", "UIImageView", "UIPanGestureRecognizer",
          "_UIBackdropView", "_UIBackdropViewSettings", "CALayer", "UIColor", "UIFont", "UIImage", "NSUserDefaults" };

class LiveCounts : public MixerHostTest {
protected:
    std::map<std::string, std::size_t> living()
    {
        device.classes->drainAutoreleasePool();
        std::map<std::string, std::size_t> counts { { "everything", device.classes->liveObjects() } };
        for (const char* const name : classesOfTheMixer)
            counts[name] = device.classes->liveObjects(name);
        return counts;
    }
    /// A short life of a mixer: a level, a drag, a turn.
    void live(int style)
    {
        show(style);
        EXPECT_TRUE(isShown());
        explicitChange(0.25f);
        device.home->pan(7, 1, 30);
        device.home->pan(7, 3, 60);
        turnTo(3);
        turnTo(1);
        explicitChange(0.5f);
        pass(1);
        dismiss();
        EXPECT_FALSE(isShown());
    }
};

} // namespace

TEST_F(LiveCounts, AreAfterTwentyShowingsWhatTheyWereAfterOne)
{
    for (const int style : { panel, banner }) {
        if (!isShown() && style == panel)
            launch();
        live(panel);
        live(style);
        const auto before = living();
        for (int time = 0; time < 20; ++time)
            live(style);
        EXPECT_EQ(living(), before) << "style " << style;
        EXPECT_EQ(device.classes->liveObjects("PNOVolumeView"), 0u);
        EXPECT_EQ(device.classes->liveObjects("PNOWindow"), 0u);
        EXPECT_EQ(device.classes->liveObjects("UILabel"), 0u);
        EXPECT_EQ(device.classes->liveObjects("UIPanGestureRecognizer"), 0u);
    }
}

TEST_F(LiveCounts, AreSoAfterShowingsThatAreCutShort)
{
    device.preferences->set("net.qorvath.panotra", "replaceHUD", true);
    launch();
    const auto live = [this](int time) {
        explicitChange(time % 2 == 0 ? 0.25f : 0.5f);
        pass(0.05 * time);
        device.home->notify("com.apple.springboard.screenchanged"); // state 0: dismisses
        pass(0.1);
        explicitChange(time % 2 == 0 ? 0.75f : 0.875f);
        pass(100);
        ASSERT_FALSE(isShown());
    };
    live(0);
    const auto before = living();
    for (int time = 1; time <= 20; ++time)
        live(time);
    EXPECT_EQ(living(), before);
}

} // namespace panotra::testing
