/// Block animations: what they set, when they end, and what interrupts them.
#include "simulator/device/Animation.h"
#include "tests/unit/device/DeviceTest.h"

namespace panotra::sim {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class AnimationTest : public DeviceTest {
protected:
    /// An animation of one second that sets the alpha of a view; its end is noted in `ends` under `name`.
    void fade(View& view, const std::string& name)
    {
        device.runLoop->animate(
            1, 0, 0, [&view] { view.setAlpha(0); },
            [this, name](bool finished) { ends.push_back(name + (finished ? " finished" : " interrupted")); });
    }

    std::vector<std::string> ends;
};

TEST_F(AnimationTest, WhatTheBlockSetsIsTheValueAtOnce)
{
    View& view = makeView();
    device.runLoop->animate(
        0.4, 0, 2, [&view] { view.setAlpha(0.25); }, nullptr);
    EXPECT_EQ(view.alpha, 0.25);
}

TEST_F(AnimationTest, ItEndsDelayPlusDurationLaterAndOnlyThenCompletes)
{
    std::vector<double> ended;
    device.runLoop->wait(1);
    device.runLoop->animate(
        0.5, 0.25, 0, [] {},
        [&](bool finished) {
            EXPECT_TRUE(finished);
            ended.push_back(device.runLoop->now());
        });
    device.runLoop->wait(0.625);
    EXPECT_THAT(ended, IsEmpty());
    EXPECT_EQ(device.runLoop->runningAnimations(), 1u);
    device.runLoop->wait(1);
    EXPECT_THAT(ended, ElementsAre(1.75));
    EXPECT_EQ(device.runLoop->runningAnimations(), 0u);
}

TEST_F(AnimationTest, TheEndIsNowPlusTheSumOfDelayAndDuration)
{
    // Summed the other way the end would be a hair earlier or later.
    device.runLoop->wait(0.1);
    device.runLoop->animate(
        0.2, 0.05, 0, [] {}, nullptr);
    EXPECT_EQ(device.runLoop->nextDue(), 0.1 + (0.05 + 0.2));
}

TEST_F(AnimationTest, StartEndAndBlockAreReportedInOrder)
{
    device.runLoop->animate(
        0.25, 0.5, 2, [this] { device.trace("windowShown"); }, [this](bool) { device.trace("launched"); });
    device.runLoop->wait(1);
    EXPECT_EQ(events,
        (std::vector<Json> {
            { { "t", 0.0 }, { "event", "animate" }, { "duration", 0.25 }, { "delay", 0.5 }, { "options", 2 } },
            { { "t", 0.0 }, { "event", "windowShown" } },
            { { "t", 0.75 }, { "event", "animationEnd" }, { "finished", true } },
            { { "t", 0.75 }, { "event", "launched" } },
        }));
}

TEST_F(AnimationTest, AnAnimationOfNoLengthEndsInTheSameTurn)
{
    device.runLoop->animate(
        0, 0, 0, [] {}, [this](bool) { ends.push_back("ended"); });
    EXPECT_THAT(ends, IsEmpty());
    device.runLoop->turn();
    EXPECT_THAT(ends, ElementsAre("ended"));
}

TEST_F(AnimationTest, ItsEndTakesItsPlaceInTheQueueBeforeItsBlockRuns)
{
    device.runLoop->animate(
        1, 0, 0, [this] { device.runLoop->dispatch(1, [this] { ends.push_back("asked for by the block"); }); },
        [this](bool) { ends.push_back("end"); });
    device.runLoop->wait(1);
    EXPECT_THAT(ends, ElementsAre("end", "asked for by the block"));
}

TEST_F(AnimationTest, TheInnermostBlockAnimatesWhatItSets)
{
    View& outer = makeView();
    View& inner = makeView();
    device.runLoop->animate(
        1, 0, 0,
        [&] {
            device.runLoop->animate(
                1, 0, 0, [&] { inner.setAlpha(0); },
                [this](bool finished) { ends.push_back(finished ? "" : "inner"); });
            outer.setAlpha(0);
        },
        [this](bool finished) { ends.push_back(finished ? "" : "outer"); });
    device.runLoop->removeAllAnimations(inner);
    EXPECT_THAT(ends, ElementsAre("inner"));
    device.runLoop->removeAllAnimations(outer);
    EXPECT_THAT(ends, ElementsAre("inner", "outer"));
}

TEST_F(AnimationTest, SettingThePropertyToTheValueItHasCountsAsSettingIt)
{
    View& view = makeView();
    animateForASecond(*device.runLoop, [&] { view.setAlpha(view.alpha); });
    EXPECT_TRUE(device.runLoop->animations().front()->animates(view));
}

TEST_F(AnimationTest, EveryAnimatableSetterCounts)
{
    const std::vector<std::function<void(BackdropView&)>> setters {
        [](BackdropView& view) {
            view.setFrame({ 1, 2, 3, 4 });
        },
        [](BackdropView& view) {
            view.setCenter({ 1, 2 });
        },
        [](BackdropView& view) {
            view.setTransform({ 2, 0, 0, 2, 0, 0 });
        },
        [](BackdropView& view) { view.setAlpha(0.5); },
        [](BackdropView& view) {
            view.setBackground(Rgba { 0, 0, 0, 1 });
        },
        [](BackdropView& view) { view.setBlurRadius(30); },
    };
    for (const auto& set : setters) {
        BackdropView& view = makeBackdrop(false);
        animateForASecond(*device.runLoop, [&] { set(view); });
        EXPECT_TRUE(device.runLoop->animations().back()->animates(view));
    }
}

TEST_F(AnimationTest, ViewsThatAreResizedByAutosizingAreNotAnimated)
{
    View& parent = makeView({ 0, 0, 10, 10 });
    BackdropView& backdrop = makeBackdrop(true);
    parent.addSubview(backdrop);
    animateForASecond(*device.runLoop, [&] { parent.setFrame({ 0, 0, 20, 30 }); });
    EXPECT_EQ(backdrop.bounds, (Size { 20, 30 }));
    const Animation& animation = *device.runLoop->animations().front();
    EXPECT_TRUE(animation.animates(parent));
    EXPECT_FALSE(animation.animates(backdrop));
    EXPECT_FALSE(animation.animates(*backdrop.content));
}

TEST_F(AnimationTest, WhatACompletionSetsInsideABlockIsNotAnimatedByTheBlock)
{
    View& view = makeView();
    View& other = makeView();
    device.runLoop->animate(
        1, 0, 0, [&] { view.setAlpha(0); }, [&](bool) { other.setAlpha(0); });
    animateForASecond(*device.runLoop, [&] { device.runLoop->removeAllAnimations(view); });
    EXPECT_EQ(other.alpha, 0);
    EXPECT_FALSE(device.runLoop->animations().front()->animates(other));
}

TEST_F(AnimationTest, TakingAllAnimationsAwayEndsThemInsideTheCallOldestFirst)
{
    View& view = makeView();
    fade(view, "first");
    fade(view, "second");
    events.clear();
    device.runLoop->removeAllAnimations(view);
    EXPECT_THAT(ends, ElementsAre("first interrupted", "second interrupted"));
    EXPECT_EQ(events, (std::vector<Json>(2, { { "t", 0.0 }, { "event", "animationEnd" }, { "finished", false } })));
    EXPECT_EQ(device.runLoop->runningAnimations(), 0u);
    device.runLoop->wait(2);
    EXPECT_EQ(ends.size(), 2u);
    EXPECT_EQ(view.alpha, 0);
}

TEST_F(AnimationTest, AnAnimationThatHasAnotherViewLeftGoesOn)
{
    View& view = makeView();
    View& other = makeView();
    device.runLoop->animate(
        1, 0, 0,
        [&] {
            view.setAlpha(0);
            other.setAlpha(0);
        },
        [this](bool finished) { ends.push_back(finished ? "finished" : "interrupted"); });
    device.runLoop->removeAllAnimations(view);
    EXPECT_THAT(ends, IsEmpty());
    EXPECT_FALSE(device.runLoop->animations().front()->animates(view));
    device.runLoop->wait(1);
    EXPECT_THAT(ends, ElementsAre("finished"));
}

TEST_F(AnimationTest, AnAnimationThatLosesItsLastViewBitByBitEndsWithTheLast)
{
    View& view = makeView();
    View& other = makeView();
    device.runLoop->animate(
        1, 0, 0,
        [&] {
            view.setAlpha(0);
            other.setAlpha(0);
        },
        [this](bool finished) { ends.push_back(finished ? "finished" : "interrupted"); });
    device.runLoop->removeAllAnimations(view);
    device.runLoop->removeAllAnimations(other);
    EXPECT_THAT(ends, ElementsAre("interrupted"));
}

TEST_F(AnimationTest, AnAnimationOfNoViewCannotBeInterrupted)
{
    View& view = makeView();
    device.runLoop->animate(
        1, 0, 0, [] {}, [this](bool finished) { ends.push_back(finished ? "finished" : ""); });
    device.runLoop->removeAllAnimations(view);
    EXPECT_THAT(ends, IsEmpty());
    device.runLoop->wait(1);
    EXPECT_THAT(ends, ElementsAre("finished"));
}

TEST_F(AnimationTest, WhatAnInterruptedCompletionStartsIsLeftRunning)
{
    View& view = makeView();
    device.runLoop->animate(
        1, 0, 0, [&] { view.setAlpha(0); }, [&](bool) { fade(view, "started meanwhile"); });
    device.runLoop->removeAllAnimations(view);
    EXPECT_EQ(device.runLoop->runningAnimations(), 1u);
    EXPECT_THAT(ends, IsEmpty());
}

TEST_F(AnimationTest, RemovingAViewFromItsSuperviewInterruptsNothing)
{
    View& parent = makeView();
    View& view = makeView();
    parent.addSubview(view);
    fade(view, "fade");
    view.removeFromSuperview();
    EXPECT_THAT(ends, IsEmpty());
    device.runLoop->wait(1);
    EXPECT_THAT(ends, ElementsAre("fade finished"));
}

TEST_F(AnimationTest, AnAnimatedViewLivesUntilTheCompletionHasRun)
{
    const std::size_t before = device.classes->liveObjects();
    View& view = makeView();
    std::size_t duringCompletion = 0;
    device.runLoop->animate(
        1, 0, 0, [&] { view.setAlpha(0); }, [&](bool) { duringCompletion = device.classes->liveObjects(); });
    release(&view);
    device.runLoop->wait(1);
    EXPECT_EQ(duringCompletion, before + 1);
    EXPECT_EQ(device.classes->liveObjects(), before);
}

TEST_F(AnimationTest, AViewThatOnlyItsAnimationsKeepAliveCanLoseThemAll)
{
    const std::size_t before = device.classes->liveObjects();
    View& view = makeView();
    fade(view, "first");
    fade(view, "second");
    release(&view);
    device.runLoop->removeAllAnimations(view);
    EXPECT_THAT(ends, ElementsAre("first interrupted", "second interrupted"));
    EXPECT_EQ(device.classes->liveObjects(), before);
}

TEST_F(AnimationTest, ItRemembersWhatWasBeforeAndAfterOfEveryPropertySet)
{
    View& view = makeView({ 0, 0, 10, 20 });
    device.runLoop->wait(2);
    device.runLoop->animate(
        0.5, 0.25, 0,
        [&] {
            view.setAlpha(0.75);
            view.setFrame({ 10, 10, 40, 60 });
            view.setAlpha(0.5);
        },
        nullptr);
    const Animation& animation = *device.runLoop->animations().front();
    EXPECT_EQ(animation.start, 2);
    EXPECT_EQ(animation.delay, 0.25);
    EXPECT_EQ(animation.duration, 0.5);
    ASSERT_EQ(animation.changes().size(), 3u);
    const Animation::Change* const alpha = animation.find(view, AnimatedProperty::Alpha);
    ASSERT_NE(alpha, nullptr);
    EXPECT_EQ(alpha->before, (PropertyValue { 1 }));
    EXPECT_EQ(alpha->after, (PropertyValue { 0.5 }));
    const Animation::Change* const center = animation.find(view, AnimatedProperty::Center);
    ASSERT_NE(center, nullptr);
    EXPECT_EQ(center->before, (PropertyValue { 5, 10 }));
    EXPECT_EQ(center->after, (PropertyValue { 30, 40 }));
    const Animation::Change* const bounds = animation.find(view, AnimatedProperty::Bounds);
    ASSERT_NE(bounds, nullptr);
    EXPECT_EQ(bounds->before, (PropertyValue { 10, 20 }));
    EXPECT_EQ(bounds->after, (PropertyValue { 40, 60 }));
    EXPECT_EQ(animation.find(view, AnimatedProperty::Transform), nullptr);
}

} // namespace
} // namespace panotra::sim
