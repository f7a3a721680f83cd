/// createUI over time: the fade-in, a second call, and the dismissal that waits.
#include "simulator/device/Animation.h"
#include "tests/support/MixerTest.h"

namespace panotra {
namespace {

using Names = std::vector<std::string>;

struct Showing : testing::MixerTest {
    Showing() { storeLevels(0.5); }

    double containerAlpha() const { return view("_containerView").alpha; }
    double blurRadius() const { return view<sim::BackdropView>("_blurBackdropView").blurRadius.value(); }
    void showReplacingTheIndicator()
    {
        store("replaceHUD", true);
        launch();
        controller().createUI();
        pass();
    }
};

// The fade-in.

TEST_F(Showing, ThePanelAppearsOnceTheBlurHasDeepened)
{
    show(panel);
    const auto fade = eventsOf("animate").back();
    EXPECT_EQ(fade["duration"], 0.15);
    EXPECT_EQ(fade["delay"], 0.0);
    EXPECT_EQ(fade["options"], 2);
    const auto* const deepening
        = device.runLoop->animations().back()->find(view("_blurBackdropView"), sim::AnimatedProperty::BlurRadius);
    ASSERT_NE(deepening, nullptr);
    EXPECT_EQ(deepening->before[0], 5.0);
    EXPECT_EQ(deepening->after[0], 30.0);
    EXPECT_EQ(containerAlpha(), 0.0);

    forgetEvents();
    pass(0.1499);
    EXPECT_EQ(containerAlpha(), 0.0);
    pass(0.0002);
    EXPECT_EQ(containerAlpha(), 1.0);
    ASSERT_EQ(countOf("animate"), 1u);
    EXPECT_EQ(eventsOf("animate")[0]["duration"], 0.15);
    EXPECT_EQ(eventsOf("animate")[0]["options"], 2);
    EXPECT_EQ(device.runLoop->runningAnimations(), 1u);
    pass(0.15);
    EXPECT_EQ(device.runLoop->runningAnimations(), 0u);
    EXPECT_EQ(countOf("animate"), 1u) << "nothing follows";
}

TEST_F(Showing, TheBannerTakesAsLongAlthoughNoBlurDeepens)
{
    show(banner);
    EXPECT_EQ(durations().back(), 0.15);
    EXPECT_EQ(containerAlpha(), 0.0);
    pass(0.1501);
    EXPECT_EQ(containerAlpha(), 1.0);
    EXPECT_EQ(device.runLoop->runningAnimations(), 1u);
    pass(0.15);
    EXPECT_EQ(device.runLoop->runningAnimations(), 0u);
}

TEST_F(Showing, LevelsAreLoadedBeforeTheLayoutAndTheLayoutComesBeforeTheFadeIn)
{
    show(panel);
    dismiss();
    forgetEvents();
    presentOnDemand();
    const auto names = order({ "synchronize", "animate", "windowShown" });
    EXPECT_EQ(names.front(), "synchronize");
    EXPECT_EQ((Names { names.end() - 4, names.end() }), (Names { "animate", "animate", "animate", "windowShown" }));
    EXPECT_EQ(durations(), (std::vector<double> { 0.3, 0.15, 0.15 })) << "the turn, the sliders' rest, the fade-in";
}

// A second call.

TEST_F(Showing, ASecondCallBuildsNothingAndShowsTheWindowAgain)
{
    showReplacingTheIndicator();
    pass(0.5);
    const id window = controller().window().get();
    const std::size_t views = device.classes->liveObjects("UIView");
    slider(0).setVolume(0.9);
    forgetEvents();
    controller().createUI();
    EXPECT_EQ(controller().window().get(), window);
    EXPECT_EQ(device.classes->liveObjects("UIView"), views);
    EXPECT_EQ(slider(0).volume(), 0.9) << "levels are left as they are";
    EXPECT_EQ(order({ "cancel", "schedule", "animate", "write", "windowShown" }),
        (Names { "cancel", "schedule", "windowShown" }));
}

TEST_F(Showing, ASecondCallEndsAFadeInAtOnce)
{
    showReplacingTheIndicator();
    for (const double after : { 0.1, 0.2 }) { // in either half
        pass(after);
        controller().createUI();
        EXPECT_EQ(containerAlpha(), 1.0) << after;
        EXPECT_EQ(blurRadius(), 30.0);
        pass(0.3);
        EXPECT_EQ(containerAlpha(), 1.0);
        dismiss();
        controller().createUI();
        pass();
    }
}

TEST_F(Showing, ASecondCallOnDemandLeavesAFadeInAlone)
{
    show(panel);
    pass(0.1);
    controller().createUI();
    EXPECT_EQ(containerAlpha(), 0.0);
    pass(0.0501);
    EXPECT_EQ(containerAlpha(), 1.0);
}

TEST_F(Showing, StyleAndSkinChangeAtTheNextBuildOnly)
{
    show(panel);
    store("activeStyle", 1);
    store("mixerSkin", 2);
    reloadSettings();
    controller().createUI();
    pass(1);
    EXPECT_TRUE(fieldOf(controller(), "_blurBackdropView") != nullptr);
    EXPECT_EQ(view<sim::BackdropView>("_rootBackdropView").style, 2010);
    EXPECT_NE(fieldOf(slider(0), "_label0"), nullptr);
    dismiss();
    presentOnDemand();
    EXPECT_EQ(view<sim::BackdropView>("_rootBackdropView").style, 2050);
    EXPECT_NE(fieldOf(slider(0), "_imageView"), nullptr);
}

// The dismissal that waits.

TEST_F(Showing, TheDismissalIsArmedBeforeAnythingIsBuilt)
{
    store("replaceHUD", true);
    launch();
    forgetEvents();
    controller().createUI();
    EXPECT_EQ(events.at(0)["event"], "cancel");
    EXPECT_EQ(events.at(0)["selector"], "destroyHUDWindow");
    EXPECT_EQ(events.at(0)["object"], nullptr);
    EXPECT_EQ(events.at(1)["event"], "schedule");
    EXPECT_EQ(events.at(1)["selector"], "destroyHUDWindow");
    EXPECT_EQ(events.at(1)["delay"], 2.0);
}

TEST_F(Showing, OnDemandOrBesideTheSystemsIndicatorNoDismissalIsArmed)
{
    for (const bool replaceHUD : { true, false }) {
        store("replaceHUD", replaceHUD);
        forgetEvents();
        show(panel);
        EXPECT_EQ(order({ "cancel", "schedule" }), Names {}) << "on demand";
        processValues.presentedViaActivator = false;
        controller().createUI();
        EXPECT_EQ(order({ "cancel", "schedule" }), replaceHUD ? (Names { "cancel", "schedule" }) : Names {});
        processValues.presentedViaActivator = true;
        dismiss();
        pass(3);
    }
}

} // namespace
} // namespace panotra
