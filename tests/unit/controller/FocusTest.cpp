/// The focus: which slider swells for which change, how long it stays enlarged, and what holds it so.
#include "tests/support/KnownFacts.h"
#include "tests/support/MixerTest.h"

#include <tuple>

namespace panotra {
namespace {

struct Focus : testing::MixerTest {
    Focus() { storeLevels(0.5); }

    void launchWithMixer()
    {
        show(panel);
        pass(1);
        forgetEvents();
    }
    static NSString textOrNull(const char* characters) { return characters == nullptr ? NSString() : text(characters); }
    /// The slots whose sliders are enlarged.
    std::vector<int> enlarged() const
    {
        std::vector<int> found;
        for (SlotNumber slot = 0; slot < volumeSlotCount; ++slot) {
            if (swelling(slot) != 1.0)
                found.push_back(slot);
        }
        return found;
    }
    /// The slots that swell for a change of that pair.
    std::vector<int> focusedBy(const char* category, const char* route)
    {
        controller().animateForCategory(textOrNull(category), textOrNull(route));
        const std::vector<int> found = enlarged();
        controller().resetTransforms();
        return found;
    }
};

using Slots = std::vector<int>;

TEST_F(Focus, TheSliderOfThePairSwells)
{
    launchWithMixer();
    for (const testing::KnownPair& pair : testing::knownPairs) {
        const Slots expected { pair.slot == 9 ? 8 : pair.slot }; // the alarm's for notifications
        if (pair.route != nullptr) {
            EXPECT_EQ(focusedBy(pair.category, pair.route), expected) << pair.category << " " << pair.route;
            continue;
        }
        for (const char* const route : { "Receiver", "Speaker", "Headset", "HeadphonesBT", "AirTunes", "" })
            EXPECT_EQ(focusedBy(pair.category, route), expected) << pair.category << " " << route;
        EXPECT_EQ(focusedBy(pair.category, nullptr), expected);
    }
}

TEST_F(Focus, NothingSwellsForAnyOtherPair)
{
    launchWithMixer();
    for (const char* const category : { "Audio/Video", "PhoneCall" }) {
        for (const char* const route : { "AirTunes", "speaker", "" })
            EXPECT_EQ(focusedBy(category, route), Slots {}) << category << " " << route;
        EXPECT_EQ(focusedBy(category, nullptr), Slots {});
    }
    EXPECT_EQ(focusedBy("Unknown", "Speaker"), Slots {});
    EXPECT_EQ(focusedBy(nullptr, "Speaker"), Slots {});
    for (const double duration : durations())
        EXPECT_EQ(duration, 0.15) << "no growth was even asked for";
}

TEST_F(Focus, OnlyADragEnlargesTheNotificationsSlider)
{
    launchWithMixer();
    device.home->pan(9, 1, 50);
    EXPECT_EQ(enlarged(), Slots { 9 });
    device.home->pan(9, 3, 50);
}

// Time.

TEST_F(Focus, ASliderGrowsStaysAndShrinksBack)
{
    launchWithMixer();
    const double start = device.runLoop->now();
    controller().animateForCategory(text("Audio/Video"), text("Speaker"));
    ASSERT_EQ(countOf("animate"), 1u);
    const auto growth = eventsOf("animate").back();
    EXPECT_EQ(growth["duration"], 0.2);
    EXPECT_EQ(growth["delay"], 0.05);
    EXPECT_EQ(growth["options"], 2);
    EXPECT_EQ(enlarged(), Slots { 0 });

    forgetEvents();
    pass(1);
    ASSERT_EQ(order({ "animationEnd", "schedule", "perform", "animate" }),
        (std::vector<std::string> { "animationEnd", "schedule", "perform", "animate", "animationEnd" }));
    EXPECT_NEAR(eventsOf("animationEnd")[0]["t"].get<double>() - start, 0.25, 1e-9);
    EXPECT_EQ(eventsOf("schedule")[0]["selector"], "resetAnimation:");
    EXPECT_EQ(eventsOf("schedule")[0]["object"], "_volumeView0");
    EXPECT_EQ(eventsOf("schedule")[0]["delay"], 0.1);
    EXPECT_NEAR(eventsOf("perform")[0]["t"].get<double>() - start, 0.35, 1e-9);
    EXPECT_EQ(eventsOf("animate")[0]["duration"], 0.2);
    EXPECT_EQ(eventsOf("animate")[0]["delay"], 0.0);
    EXPECT_EQ(eventsOf("animate")[0]["options"], 2);
    EXPECT_NEAR(eventsOf("animationEnd")[1]["t"].get<double>() - start, 0.55, 1e-9);
    EXPECT_EQ(enlarged(), Slots {});
}

TEST_F(Focus, AStepCancelsTheShrinkBackThatIsStillPending)
{
    launchWithMixer();
    controller().autoAnimateView(slider(0));
    pass(0.3); // grown; the shrink-back is pending until 0.35
    ASSERT_EQ(device.runLoop->pending().size(), 1u);
    forgetEvents();
    controller().autoAnimateView(slider(0));
    EXPECT_EQ(order({ "cancel", "animate" }), (std::vector<std::string> { "cancel", "animate" }));
    EXPECT_EQ(eventsOf("cancel")[0]["selector"], "resetAnimation:");
    EXPECT_EQ(eventsOf("cancel")[0]["object"], "_volumeView0");
    EXPECT_EQ(device.runLoop->pending().size(), 0u);
    pass(0.3499); // 0.05 + 0.2 + 0.1 from the last step
    EXPECT_EQ(swelling(0), 1.05);
    pass(0.0002);
    EXPECT_EQ(swelling(0), 1.0);
}

TEST_F(Focus, AStepOfAnotherSliderLeavesThePendingShrinkBack)
{
    launchWithMixer();
    controller().autoAnimateView(slider(0));
    pass(0.3);
    controller().autoAnimateView(slider(1));
    EXPECT_EQ(device.runLoop->pending().size(), 1u);
    pass(0.0501);
    EXPECT_EQ(enlarged(), Slots { 1 });
}

TEST_F(Focus, TheSliderStaysEnlargedWhileAButtonIsHeldAndIsNotTriedAgain)
{
    launchWithMixer();
    for (bool sim::HomeScreen::*const button :
        { &sim::HomeScreen::volumeUpIsDown, &sim::HomeScreen::volumeDownIsDown }) {
        controller().autoAnimateView(slider(0));
        pass(0.3);
        device.home.get()->*button = true;
        pass(1);
        EXPECT_EQ(swelling(0), 1.05);
        device.home.get()->*button = false;
        pass(10);
        EXPECT_EQ(swelling(0), 1.05) << "letting go does not try again";
        controller().autoAnimateView(slider(0));
        pass(0.6);
        EXPECT_EQ(swelling(0), 1.0) << "the next change does";
    }
}

TEST_F(Focus, ButtonsAreLookedAtWhenTheShrinkBackBeginsAndNotBefore)
{
    launchWithMixer();
    device.home->volumeUpIsDown = true;
    controller().autoAnimateView(slider(0));
    pass(0.34);
    device.home->volumeUpIsDown = false;
    pass(0.02);
    EXPECT_EQ(swelling(0), 1.0);
    device.home->volumeUpIsDown = true;
    pass(1);
    EXPECT_EQ(swelling(0), 1.0);
}

/// The names of the buttons that were asked for, in order.
std::vector<std::string> buttonsAsked;

TEST_F(Focus, TheUpButtonIsNotAskedForWhileTheDownButtonIsHeld)
{
    launchWithMixer();
    for (HostField& field : device.classes->platformClass("VolumeControl").fields) {
        if (field.name == "_volumeUpButtonIsDown")
            field.read = [] {
                buttonsAsked.emplace_back("up");
                return std::int64_t { sim::Device::current()->home->volumeUpIsDown };
            };
        if (field.name == "_volumeDownButtonIsDown")
            field.read = [] {
                buttonsAsked.emplace_back("down");
                return std::int64_t { sim::Device::current()->home->volumeDownIsDown };
            };
    }
    using Asked = std::vector<std::string>;
    for (const auto& [isDown, isUp, asked] :
        { std::tuple(true, true, Asked { "down" }), std::tuple(true, false, Asked { "down" }),
            std::tuple(false, true, Asked { "down", "up" }), std::tuple(false, false, Asked { "down", "up" }) }) {
        device.home->volumeDownIsDown = isDown;
        device.home->volumeUpIsDown = isUp;
        slider(0).setTransform(CGAffineTransformMakeScale(2, 2));
        buttonsAsked.clear();
        forgetEvents();
        controller().resetAnimation(slider(0));
        EXPECT_EQ(buttonsAsked, asked);
        EXPECT_EQ(durations(), (std::vector<double> { 0.2 })) << "the animation is started all the same";
        EXPECT_EQ(swelling(0), isDown || isUp ? 2.0 : 1.0);
    }
    device.home->volumeDownIsDown = false;
    device.home->volumeUpIsDown = false;
}

TEST_F(Focus, WithoutAVolumeControlTheSliderShrinksBack)
{
    launchWithMixer();
    device.home->volumeUpIsDown = true;
    device.classes->setPresent("VolumeControl", false);
    controller().autoAnimateView(slider(0));
    pass(0.6);
    EXPECT_EQ(swelling(0), 1.0);
}

// Drags.

TEST_F(Focus, DuringADragNothingIsCancelledAndNoShrinkBackIsScheduled)
{
    launchWithMixer();
    processValues.autoResetTransform = false;
    controller().autoAnimateView(slider(0));
    pass(10);
    EXPECT_EQ(order({ "cancel", "schedule" }), (std::vector<std::string> {}));
    EXPECT_EQ(swelling(0), 1.05);
}

TEST_F(Focus, AShrinkBackThatWasScheduledBeforeTheDragStillRuns)
{
    launchWithMixer();
    controller().autoAnimateView(slider(0));
    pass(0.3);
    processValues.autoResetTransform = false;
    pass(0.1);
    EXPECT_EQ(swelling(0), 1.0);
}

TEST_F(Focus, WhatCountsIsWhetherADragIsOnWhenTheGrowthEnds)
{
    launchWithMixer();
    processValues.autoResetTransform = false;
    controller().autoAnimateView(slider(0));
    pass(0.2);
    processValues.autoResetTransform = true;
    pass(0.2);
    EXPECT_EQ(swelling(0), 1.0);
}

TEST_F(Focus, TheBeginningOfADragCancelsAPendingShrinkBackAndItsEndResetsAll)
{
    launchWithMixer();
    controller().autoAnimateView(slider(9));
    pass(0.3);
    device.home->pan(9, 1, 50);
    pass(5);
    EXPECT_EQ(swelling(9), 1.05);
    forgetEvents();
    device.home->pan(9, 3, 50);
    EXPECT_EQ(durations(), (std::vector<double> { 0.15 }));
    EXPECT_EQ(enlarged(), Slots {});
}

// All at once.

TEST_F(Focus, ResettingReturnsEverySliderToRest)
{
    launchWithMixer();
    for (SlotNumber slot = 0; slot < volumeSlotCount; ++slot)
        slider(slot).setTransform(CGAffineTransformMakeRotation(1));
    controller().resetTransforms();
    const auto reset = eventsOf("animate").back();
    EXPECT_EQ(reset["duration"], 0.15);
    EXPECT_EQ(reset["delay"], 0.0);
    EXPECT_EQ(reset["options"], 2);
    for (SlotNumber slot = 0; slot < volumeSlotCount; ++slot)
        EXPECT_EQ(sliderView(slot).transform, sim::Transform {}) << int(slot);
}

TEST_F(Focus, ResettingChangesNothingButTransforms)
{
    launchWithMixer();
    slider(3).setVolume(0.9);
    const CGRect frame = frameOf(sliderView(3));
    controller().resetTransforms();
    EXPECT_EQ(slider(3).volume(), 0.9);
    EXPECT_TRUE(testing::isRectangle(frameOf(sliderView(3)), frame));
    EXPECT_EQ(countOf("write"), 0u);
}

TEST_F(Focus, BeforeTheMixerIsBuiltThereIsNothingToReset)
{
    launch();
    forgetEvents();
    controller().resetTransforms();
    EXPECT_TRUE(events.empty());
    EXPECT_EQ(device.runLoop->pendingCount(), 0u);
}

TEST_F(Focus, AnAbsentSliderIsFocusedWithoutAnythingToSee)
{
    launch();
    forgetEvents();
    controller().animateForCategory(text("Alarm"), nullptr);
    EXPECT_EQ(durations(), (std::vector<double> { 0.2 }));
    pass(1);
    ASSERT_EQ(countOf("schedule"), 1u);
    EXPECT_EQ(eventsOf("schedule")[0]["object"], nullptr);
    EXPECT_EQ(countOf("perform"), 1u);
}

TEST_F(Focus, AShrinkBackThatOutlivesTheMixerRunsHarmlessly)
{
    launchWithMixer();
    dismiss();
    presentOnDemand();
    pass(1);
    controller().destroyHUDWindow();
    pass(0.3);
    controller().autoAnimateView(slider(0));
    pass(0.2); // torn down at 0.4; the growth ends at 0.55
    EXPECT_FALSE(controller().window());
    EXPECT_EQ(device.classes->liveObjects("PNOVolumeView"), 1u) << "deferred work keeps the one slider alive";
    pass(1);
    device.classes->drainAutoreleasePool();
    EXPECT_EQ(device.classes->liveObjects("PNOVolumeView"), 0u);
}

} // namespace
} // namespace panotra
