/// Null controllers, superclasses that refuse, and names that another program has taken.
#include "controller/PNOHelperController.h"
#include "tests/support/KnownFacts.h"
#include "tests/support/MixerTest.h"

#include <functional>

namespace panotra {
namespace {

struct Refusal : testing::MixerTest {
    Refusal() { storeLevels(0.5); }
};

// Null.

struct NullCall {
    const char* name;
    std::function<bool(const PNOController& none)> answersNothing;
};

template <typename Call> NullCall nullCall(const char* name, Call call)
{
    return { name, [call](const PNOController& none) {
                call(none);
                return true;
            } };
}

const NullCall nullCalls[] = {
    { "init",
        [](const PNOController& none) {
            return !none.init();
        } },
    nullCall("createUI", [](const PNOController& none) { none.createUI(); }),
    nullCall("destroyHUDWindow", [](const PNOController& none) { none.destroyHUDWindow(); }),
    nullCall("releaseObjects", [](const PNOController& none) { none.releaseObjects(); }),
    nullCall("rescheduleDismissal", [](const PNOController& none) { none.rescheduleDismissal(1); }),
    nullCall("setVolumeLevel",
        [](const PNOController& none) {
            none.setVolumeLevel(0.25f, NSString::stringWithUTF8String("Alarm"), nullptr);
        }),
    { "getVolumeLevel",
        [](const PNOController& none) {
            return none.getVolumeLevel(NSString::stringWithUTF8String("Alarm"), nullptr) == 0
                && none.getVolumeLevel(nullptr, nullptr) == 0;
        } },
    { "pickedRoute",
        [](const PNOController& none) {
            return !none.pickedRoute();
        } },
    nullCall("saveVolume",
        [](const PNOController& none) { none.saveVolume(0.25f, NSString::stringWithUTF8String("volume8")); }),
    { "getVolume",
        [](const PNOController& none) {
            return none.getVolume(NSString::stringWithUTF8String("volume8")) == 0;
        } },
    nullCall("saveVolumeLevelsToDisk", [](const PNOController& none) { none.saveVolumeLevelsToDisk(); }),
    nullCall("importVolumeLevelsToRam", [](const PNOController& none) { none.importVolumeLevelsToRam(); }),
    nullCall("mixerSkinOptions", [](const PNOController& none) { none.mixerSkinOptions(); }),
    { "rootViewTransform",
        [](const PNOController& none) {
            return none.rootViewTransform() == CGAffineTransformIdentity;
        } },
    nullCall("layoutSubviews", [](const PNOController& none) { none.layoutSubviews(); }),
    nullCall("animateForCategory",
        [](const PNOController& none) { none.animateForCategory(NSString::stringWithUTF8String("Alarm"), nullptr); }),
    nullCall("autoAnimateView", [](const PNOController& none) { none.autoAnimateView(nullptr); }),
    nullCall("resetAnimation", [](const PNOController& none) { none.resetAnimation(nullptr); }),
    nullCall("resetTransforms", [](const PNOController& none) { none.resetTransforms(); }),
    { "returnViewFromTouchedView",
        [](const PNOController& none) {
            return !none.returnViewFromTouchedView(UIView::init());
        } },
    { "window",
        [](const PNOController& none) {
            return !none.window();
        } },
    { "rootView",
        [](const PNOController& none) {
            return !none.rootView();
        } },
    { "volumeView",
        [](const PNOController& none) {
            return !none.volumeView(0) && !none.volumeView(noSlot);
        } },
};

TEST_F(Refusal, ANullControllerAnswersNothingAndAsksNothingOfTheHost)
{
    launch();
    processValues.presentedViaActivator = true;
    processValues.replaceHUD = true;
    processValues.dismissOnTouch = true;
    device.screen->orientation = 3; // a transform that is not the identity
    device.classes->drainAutoreleasePool();
    const sim::Json globals = library.globals();
    const std::size_t objects = device.classes->liveObjects();
    forgetEvents();
    const PNOController none;
    for (const NullCall& each : nullCalls) {
        EXPECT_TRUE(each.answersNothing(none)) << each.name;
        EXPECT_TRUE(events.empty()) << each.name;
        device.classes->drainAutoreleasePool();
        EXPECT_EQ(device.classes->liveObjects(), objects) << each.name;
    }
    EXPECT_EQ(library.globals(), globals);
    EXPECT_TRUE(processValues.justCreated);
    EXPECT_EQ(device.runLoop->pendingCount(), 0u);
    EXPECT_EQ(stored("volume8"), 0.5);
}

TEST_F(Refusal, ANullHelperCarriesNothing)
{
    launch();
    forgetEvents();
    const PNOHelperController none;
    EXPECT_FALSE(none.init());
    EXPECT_FALSE(none.packageName());
    EXPECT_FALSE(none.bundle());
    EXPECT_FALSE(none.requiresSmallIconData(nullptr, text("net.qorvath.panotra.presentmixer"), nullptr));
    EXPECT_TRUE(events.empty());
}

TEST_F(Refusal, ThereAreSlidersForTheSlotsAndForNoOtherNumber)
{
    show(panel);
    for (SlotNumber slot = 0; slot < testing::knownSlotCount; ++slot)
        EXPECT_EQ(slider(slot).tag(), slot);
    EXPECT_TRUE(controller().volumeView(11));
    controller().getVolume(text("volume8")); // what stands behind the last slider is not zero
    for (int slot = testing::knownSlotCount; slot < 256; ++slot)
        EXPECT_FALSE(controller().volumeView(static_cast<SlotNumber>(slot))) << slot;
}

// Levels.

TEST_F(Refusal, ALevelThatTheHostDoesNotVouchForSeedsZero)
{
    device.classes->platformClass("AVSystemController").methods[sim::selector("getVolume:forCategory:")]
        = sim::implementation(+[](HostObject*, const HostSelector*, float* level, HostObject*) {
              *level = 0.9f;
              return false;
          });
    for (const VolumeSlot& slot : volumeSlots)
        device.preferences->unset(testing::ownDomain, slot.preferenceKey);
    show(panel);
    for (SlotNumber slot = 0; slot < volumeSlotCount; ++slot)
        EXPECT_EQ(slider(slot).volume(), 0.0) << int(slot);
}

// Superclasses that answer nothing, or another object.

/// What `init` and `initWithFrame:` of the superclasses answer instead of their receiver.
HostObject* answerInstead = nullptr;
int initialised = 0;

/// As the platform's own do: the receiver's count is taken, and one of the answer is given.
HostObject* initAnsweringAnother(HostObject* self, const HostSelector*)
{
    ++initialised;
    sim::release(self);
    sim::retain(answerInstead);
    return answerInstead;
}

HostObject* initWithFrameAnsweringAnother(HostObject* self, const HostSelector* selector, sim::Rect)
{
    return initAnsweringAnother(self, selector);
}

struct RefusingSuperclass : Refusal {
    RefusingSuperclass()
    {
        answerInstead = nullptr;
        initialised = 0;
    }
    ~RefusingSuperclass() override { answerInstead = nullptr; }

    void refuseInit(const char* className)
    {
        device.classes->platformClass(className).methods[sim::selector("init")]
            = sim::implementation(initAnsweringAnother);
    }
    /// A life that needs everything.
    void liveOn()
    {
        store("replaceHUD", true);
        store("handleShake", true);
        reloadSettings();
        announce("Audio/Video", "ExplicitVolumeChange", 0.75f);
        announce("Audio/Video", "RouteChange", 0.25f);
        device.home->setRingerMuted(true);
        device.home->playSound(1);
        device.home->reorientHUD(true);
        device.home->motionBegan(1);
        pass(1);
        device.home->notify("net.qorvath.panotra.uikitshaken");
        device.home->sendActivatorEvent("net.qorvath.panotra.presentmixer");
        device.home->pan(0, 1, 30);
        device.home->pan(0, 3, 30);
        device.touches->down(100, 100);
        device.touches->up();
        pass(100);
        EXPECT_EQ(countOf("ringer"), 1u);
        EXPECT_EQ(countOf("sound"), 1u);
        EXPECT_EQ(countOf("reoriented"), 1u);
    }
};

TEST_F(RefusingSuperclass, WithoutAnObjectThereIsNoControllerAndItIsTriedAgain)
{
    load();
    refuseInit("NSObject");
    EXPECT_FALSE(controller());
    EXPECT_FALSE(controller());
    EXPECT_EQ(initialised, 2);
    EXPECT_EQ(device.classes->liveObjects("PNOController"), 0u);
    device.home->finishLaunching();
    liveOn();
    EXPECT_EQ(countOf("windowShown"), 0u);
    EXPECT_EQ(countOf("write"), 0u);
}

TEST_F(RefusingSuperclass, WithoutAnObjectThereIsNoHelperAndNothingIsRegistered)
{
    load();
    EXPECT_TRUE(controller());
    refuseInit("NSObject");
    EXPECT_FALSE(PNOHelperController::sharedInstance());
    EXPECT_EQ(countOf("listener"), 0u);
    EXPECT_EQ(device.classes->liveObjects("PNOHelperController"), 0u);
    store("activeStyle", 1);
    device.home->finishLaunching();
    EXPECT_EQ(processValues.activeStyle, 0) << "the domain's name is the helper's";
    liveOn();
    EXPECT_EQ(stored("volume0"), 0.5);
}

TEST_F(RefusingSuperclass, AnotherObjectInTheControllersPlaceDoesNothing)
{
    load();
    const auto other = adopt<NSObject>(device.classes->make<HostObject>("NSObject"));
    answerInstead = other.get();
    refuseInit("NSObject");
    EXPECT_EQ(controller(), other);
    device.classes->platformClass("NSObject").methods[sim::selector("init")]
        = sim::implementation(+[](HostObject* self, const HostSelector*) { return self; });
    device.home->finishLaunching();
    liveOn();
    EXPECT_EQ(countOf("windowShown"), 0u);
}

TEST_F(RefusingSuperclass, AnotherObjectInTheHelpersPlaceIsTheListenerAndCarriesNothing)
{
    load();
    EXPECT_TRUE(controller());
    const auto other = adopt<NSObject>(device.classes->make<HostObject>("NSObject"));
    answerInstead = other.get();
    refuseInit("NSObject");
    const PNOHelperController helper = PNOHelperController::sharedInstance();
    EXPECT_EQ(helper, other);
    EXPECT_EQ(countOf("listener"), 3u);
    EXPECT_FALSE(helper.packageName());
    EXPECT_FALSE(helper.bundle());
}

TEST_F(RefusingSuperclass, AMixerWhoseWindowIsRefusedIsBuiltAndNeverSeen)
{
    launch();
    device.classes->platformClass("UIView").methods[sim::selector("initWithFrame:")]
        = sim::implementation(initWithFrameAnsweringAnother);
    liveOn();
    EXPECT_FALSE(controller().window());
    EXPECT_EQ(countOf("windowShown"), 0u);
    device.home->setRingerMuted(true);
    EXPECT_NE(shownText(7), "Silent") << "without a window there is nobody to be told";
    controller().destroyHUDWindow();
    pass(100);
    EXPECT_EQ(device.classes->liveObjects("PNOVolumeView"), 0u);
}

TEST_F(RefusingSuperclass, AnotherWindowIsTakenForTheMixersOwn)
{
    launch();
    const auto other = adopt<UIWindow>(device.classes->make<sim::Window>("UIWindow"));
    other.setFrame(CGRectMake(0, 0, 375, 667));
    answerInstead = other.get();
    device.classes->platformClass("UIView").methods[sim::selector("initWithFrame:")]
        = sim::implementation(initWithFrameAnsweringAnother);
    presentOnDemand();
    EXPECT_EQ(controller().window(), other);
    EXPECT_TRUE(dynamic_cast<const sim::Window&>(*other.get()).shown);
    EXPECT_EQ(sliderView(0).tag, 0);
    dismiss();
    EXPECT_FALSE(controller().window());
}

// Names that another program has taken.

struct TakenName : RefusingSuperclass, ::testing::WithParamInterface<const char*> { };

TEST_P(TakenName, IsLeftToItsOwnerAndTheHomeScreenLivesOn)
{
    HostClass& taken = device.classes->add(GetParam(), "NSObject");
    launch();
    liveOn();
    EXPECT_FALSE(taken.isRegistered);
    EXPECT_TRUE(taken.methods.empty());
    EXPECT_TRUE(taken.fields.empty());
    EXPECT_EQ(device.classes->liveObjects(GetParam()), 0u);
    EXPECT_EQ(countOf("launched"), 1u);
    EXPECT_EQ(countOf("announced"), 2u);
}

INSTANTIATE_TEST_SUITE_P(
    EachClass, TakenName, ::testing::Values("PNOController", "PNOHelperController", "PNOVolumeView", "PNOWindow"));

} // namespace
} // namespace panotra
