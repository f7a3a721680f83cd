/// The controller from its creation to the tear-down of what it shows.
#include "simulator/device/View.h"
#include "tests/support/HomeScreenTest.h"

namespace panotra {
namespace {

struct Lifecycle : testing::HomeScreenTest {
    double field(const char* name) const { return controller().valueForKey(name).doubleValue(); }
    double alpha() const { return retained<UIView>(controller().valueForKey("_containerView").get()).alpha(); }
    void show()
    {
        launch();
        controller().createUI();
        pass(0.3);
        ASSERT_EQ(alpha(), 1.0);
    }
};

TEST_F(Lifecycle, ThereIsOneController)
{
    load();
    EXPECT_TRUE(controller());
    EXPECT_EQ(controller(), controller());
    EXPECT_EQ(device.classes->liveObjects("PNOController"), 1u);
}

TEST_F(Lifecycle, TheHostReachesEveryMethodUnderItsName)
{
    std::vector<std::string> names;
    for (const Method& method : PNOController::description().methods)
        names.emplace_back(method.selector);
    EXPECT_EQ(names,
        (std::vector<std::string> { "init", "createUI", "destroyHUDWindow", "releaseObjects",
            "setVolumeLevel:forCategory:andRoute:", "getVolumeLevelForCategory:andRoute:", "pickedRoute",
            "saveVolume:forKey:", "getVolumeForKey:", "saveVolumeLevelsToDisk", "importVolumeLevelsToRam",
            "mixerSkinOptions", "rootViewTransform", "layoutSubviews", "animateForCategory:andRoute:",
            "autoAnimateView:", "resetAnimation:", "resetTransforms", "returnViewFromTouchedView:" }));
    ASSERT_EQ(PNOController::description().classMethods.size(), 1u);
    EXPECT_STREQ(PNOController::description().classMethods[0].selector, "sharedInstance");
}

TEST_F(Lifecycle, TheHostReachesEveryMethodOfASliderUnderItsName)
{
    std::vector<std::string> names;
    for (const Method& method : PNOVolumeView::description().methods)
        names.emplace_back(method.selector);
    EXPECT_EQ(names,
        (std::vector<std::string> { "initWithName:andTag:canGoToZero:", "initWithImage:andTag:canGoToZero:",
            "setFrame:andLevel:", "setFrame2:andLevel:", "setVolumeLevel:", "volume",
            "setVolume:", "handleVolumeViewPan:" }));
}

TEST_F(Lifecycle, InAnyOtherProcessThereIsNoneEveryTime)
{
    device.bundleIdentifier = "com.apple.mobilesafari";
    load();
    EXPECT_FALSE(controller());
    EXPECT_FALSE(controller());
    EXPECT_EQ(device.classes->liveObjects("PNOController"), 0u);
}

TEST_F(Lifecycle, ARefusedControllerIsTriedAgain)
{
    device.bundleIdentifier = "com.apple.mobilesafari";
    load();
    EXPECT_FALSE(controller());
    device.bundleIdentifier = "com.apple.springboard";
    EXPECT_TRUE(controller());
}

struct Measures {
    double width, height, referenceWidth, referenceHeight;
};

TEST_F(Lifecycle, TheReferenceSizeIsSmallerOnAScreenJustAsWideOrHigh)
{
    for (const Measures& screen : { Measures { 320, 480, 300, 440 }, Measures { 320, 568, 300, 480 },
             Measures { 375, 667, 320, 480 }, Measures { 414, 736, 320, 480 }, Measures { 768, 1024, 320, 480 },
             Measures { 480, 320, 320, 480 }, Measures { 400, 480, 320, 440 } }) {
        load(); // a fresh image of the library has a fresh controller
        device.screen->width = screen.width;
        device.screen->height = screen.height;
        EXPECT_EQ(field("_boundsWidth"), screen.width);
        EXPECT_EQ(field("_boundsHeight"), screen.height);
        EXPECT_EQ(field("_iphone4Width"), screen.referenceWidth);
        EXPECT_EQ(field("_iphone4Height"), screen.referenceHeight);
    }
}

TEST_F(Lifecycle, RealPixelsAreTurnedIntoPoints)
{
    device.screen->width = 414;
    device.screen->height = 736;
    device.screen->scale = 3;
    load();
    EXPECT_EQ(field("_boundsWidth"), 414);
    EXPECT_EQ(field("_boundsHeight"), 736);
}

TEST_F(Lifecycle, ReferenceBoundsAreTakenAsTheyAre)
{
    device.screen->hasRealDisplayBounds = false;
    device.screen->width = 320;
    device.screen->height = 480;
    load();
    EXPECT_EQ(field("_boundsWidth"), 320);
    EXPECT_EQ(field("_boundsHeight"), 480);
    EXPECT_EQ(field("_iphone4Width"), 300);
}

TEST_F(Lifecycle, DismissingNothingSavesNothingFadesNothingAndTearsNothingDown)
{
    launch();
    processValues.presentedViaActivator = true;
    forgetEvents();
    controller().destroyHUDWindow();
    pass(1);
    EXPECT_EQ(order({ "write", "animate", "animationEnd", "schedule", "perform" }),
        (std::vector<std::string> { "animate", "animationEnd", "schedule", "perform" }));
    EXPECT_FALSE(processValues.presentedViaActivator);
}

TEST_F(Lifecycle, ADismissalFadesAndTearsDownAtTheNextTurnAfterTheFade)
{
    show();
    controller().destroyHUDWindow();
    EXPECT_EQ(alpha(), 0.0);
    pass(0.3999);
    EXPECT_TRUE(controller().window());
    pass(0.0002);
    EXPECT_FALSE(controller().window());
    EXPECT_FALSE(controller().rootView());
    for (SlotNumber slot = 0; slot < volumeSlotCount; ++slot)
        EXPECT_FALSE(slider(slot));
}

TEST_F(Lifecycle, ADismissalByTouchTearsDownFourTenthsOfASecondLater)
{
    show();
    processValues.killedByTouch = true;
    controller().destroyHUDWindow();
    pass(0.4001);
    EXPECT_FALSE(processValues.killedByTouch);
    EXPECT_TRUE(controller().window());
    pass(0.3998);
    EXPECT_TRUE(controller().window());
    pass(0.0003);
    EXPECT_FALSE(controller().window());
}

TEST_F(Lifecycle, ReleasingAShownMixerChangesNothingAtAll)
{
    show();
    processValues.presentedViaActivator = true;
    controller().releaseObjects();
    EXPECT_TRUE(controller().window());
    EXPECT_TRUE(slider(0));
    EXPECT_TRUE(processValues.presentedViaActivator);
}

TEST_F(Lifecycle, AnAlphaJustAboveZeroKeepsTheMixer)
{
    show();
    retained<UIView>(controller().valueForKey("_containerView").get()).setAlpha(1e-12);
    controller().releaseObjects();
    EXPECT_TRUE(controller().window());
}

TEST_F(Lifecycle, TheTearDownClearsEveryViewFieldButTheBlur)
{
    store("volume4", 0.25);
    show();
    controller().getVolume(text("volume4"));
    ASSERT_EQ(field("_volume"), 0.25);
    controller().destroyHUDWindow();
    pass(0.5);
    for (const char* name : { "_window", "_rootView", "_containerView", "_rootBackdropView", "_groupView0",
             "_groupView1", "_groupView2", "_groupLabel0", "_groupLabel1", "_groupLabel2" })
        EXPECT_FALSE(controller().valueForKey(name)) << name;
    for (SlotNumber slot = 0; slot < volumeSlotCount; ++slot)
        EXPECT_FALSE(slider(slot)) << int(slot);
    EXPECT_TRUE(controller().valueForKey("_blurBackdropView"));
    EXPECT_EQ(field("_volume"), 0);
    EXPECT_EQ(field("_boundsWidth"), 375);
    EXPECT_EQ(field("_iphone4Height"), 480);
}

TEST_F(Lifecycle, AChangeDuringTheFadeOutBringsTheMixerBackAndKeepsIt)
{
    store("replaceHUD", true);
    storeLevels(0.5);
    show();
    controller().destroyHUDWindow();
    pass(0.2);
    forgetEvents();
    announce("Audio/Video", "ExplicitVolumeChange", 0.75f);
    EXPECT_EQ(alpha(), 1.0);
    EXPECT_FALSE(eventsOf("animationEnd").at(0)["finished"]) << "the fade was interrupted";
    pass(1.9);
    EXPECT_TRUE(controller().window());
    EXPECT_EQ(alpha(), 1.0);
    pass(0.6);
    EXPECT_FALSE(controller().window()) << "its own dismissal was armed anew";
}

TEST_F(Lifecycle, TheOldBlurIsStillSpokenToInALaterShowing)
{
    show();
    controller().destroyHUDWindow();
    pass(0.5);
    const auto* const blur
        = dynamic_cast<const sim::BackdropView*>(controller().valueForKey("_blurBackdropView").get());
    ASSERT_NE(blur, nullptr);
    EXPECT_EQ(blur->blurRadius, 5.0);
    EXPECT_EQ(blur->superview, nullptr);
    store("activeStyle", 1);
    reloadSettings();
    controller().createUI();
    EXPECT_EQ(blur->blurRadius, 30.0);
    EXPECT_EQ(blur->superview, nullptr);
}

TEST_F(Lifecycle, AMixerShownOnDemandGetsNoDismissal)
{
    store("replaceHUD", true);
    launch();
    processValues.presentedViaActivator = true;
    controller().createUI();
    pass(100);
    EXPECT_TRUE(controller().window());
}

TEST_F(Lifecycle, WithoutReplacingTheIndicatorThereIsNoDismissalEither)
{
    launch();
    controller().createUI();
    pass(100);
    EXPECT_TRUE(controller().window());
}

TEST_F(Lifecycle, EveryShowingArmsTheDismissalAnew)
{
    store("replaceHUD", true);
    launch();
    controller().createUI();
    pass(1.5);
    controller().createUI();
    EXPECT_EQ(device.runLoop->pending().size(), 1u);
    pass(1.5);
    EXPECT_EQ(alpha(), 1.0);
    pass(1.0);
    EXPECT_FALSE(controller().window());
}

TEST_F(Lifecycle, TheDismissalComesAfterTheDelayThatTheSettingsName)
{
    store("replaceHUD", true);
    device.preferences->set(testing::siblingDomain, "dismissDelay", 3.5);
    launch();
    controller().createUI();
    pass(3.4999);
    EXPECT_EQ(alpha(), 1.0);
    pass(0.0002);
    EXPECT_EQ(alpha(), 0.0);
}

TEST_F(Lifecycle, ASecondDismissalLeavesThePendingOneAlone)
{
    store("replaceHUD", true);
    storeLevels(0.5);
    launch();
    controller().createUI();
    controller().destroyHUDWindow();
    EXPECT_EQ(device.runLoop->pending()[0]["selector"], "destroyHUDWindow");
    forgetEvents();
    pass(3);
    EXPECT_EQ(countOf("perform"), 3u) << "the tear-down, the pending dismissal and its own tear-down";
}

} // namespace
} // namespace panotra
