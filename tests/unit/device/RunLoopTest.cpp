/// The clock and the queue of deferred work.
#include "tests/unit/device/DeviceTest.h"

namespace panotra::sim {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

using RunLoopTest = DeviceTest;

TEST_F(RunLoopTest, WorkRunsInTheOrderOfItsDueTimes)
{
    HostObject& target = makeRecorder();
    device.runLoop->perform(&target, selector("second"), nullptr, 2);
    device.runLoop->perform(&target, selector("first"), nullptr, 1);
    device.runLoop->wait(3);
    EXPECT_THAT(calls, ElementsAre("1 first", "2 second"));
}

TEST_F(RunLoopTest, WorkThatIsDueTogetherRunsInTheOrderOfAsking)
{
    std::vector<int> order;
    HostObject& target = makeRecorder();
    device.runLoop->dispatch(1, [&] { order.push_back(static_cast<int>(calls.size())); });
    device.runLoop->perform(&target, selector("first"), nullptr, 1);
    device.runLoop->dispatch(1, [&] { order.push_back(static_cast<int>(calls.size())); });
    device.runLoop->wait(1);
    EXPECT_THAT(order, ElementsAre(0, 1));
}

TEST_F(RunLoopTest, ATurnRunsWhatIsDueByNowAndNothingLater)
{
    HostObject& target = makeRecorder();
    device.runLoop->perform(&target, selector("first"), nullptr, 0);
    device.runLoop->perform(&target, selector("second"), nullptr, 1e-9);
    device.runLoop->turn();
    EXPECT_THAT(calls, ElementsAre("0 first"));
}

TEST_F(RunLoopTest, WorkThatIsMadeDueByNowRunsInTheSameTurn)
{
    std::vector<int> order;
    device.runLoop->dispatch(0, [&] {
        order.push_back(1);
        device.runLoop->dispatch(0, [&] {
            order.push_back(3);
            device.runLoop->defer([&] { order.push_back(4); });
        });
        order.push_back(2);
    });
    device.runLoop->turn();
    EXPECT_THAT(order, ElementsAre(1, 2, 3, 4));
    EXPECT_EQ(device.runLoop->pendingCount(), 0u);
}

TEST_F(RunLoopTest, TheClockStandsAtTheDueTimeOfTheWorkThatRuns)
{
    std::vector<double> times;
    device.runLoop->wait(0.5);
    device.runLoop->dispatch(0.25, [&] {
        times.push_back(device.runLoop->now());
        device.runLoop->dispatch(0.125, [&] { times.push_back(device.runLoop->now()); });
    });
    device.runLoop->wait(2);
    EXPECT_THAT(times, ElementsAre(0.75, 0.875));
}

TEST_F(RunLoopTest, WaitingLeavesTheClockAtNowPlusSeconds)
{
    device.runLoop->dispatch(0.25, [] {});
    device.runLoop->wait(0.7);
    EXPECT_EQ(device.runLoop->now(), 0.7);
    device.runLoop->wait(0.1);
    EXPECT_EQ(device.runLoop->now(), 0.7 + 0.1);
}

TEST_F(RunLoopTest, WhatIsDueExactlyWhenTheWaitEndsRuns)
{
    HostObject& target = makeRecorder();
    device.runLoop->perform(&target, selector("first"), nullptr, 0.1);
    device.runLoop->wait(0.1);
    EXPECT_THAT(calls, ElementsAre("0.1 first"));
}

TEST_F(RunLoopTest, ANegativeDelayIsReportedAsItIsAndDueNow)
{
    HostObject& target = makeRecorder();
    device.runLoop->wait(1);
    device.runLoop->perform(&target, selector("first"), nullptr, -5);
    EXPECT_EQ(eventsOf("schedule").at(0)["delay"], -5);
    EXPECT_EQ(device.runLoop->pending().at(0)["due"], 1);
    device.runLoop->turn();
    EXPECT_THAT(calls, ElementsAre("1 first"));
}

TEST_F(RunLoopTest, TheNextDueTimeIsTheEarliestOne)
{
    EXPECT_EQ(device.runLoop->nextDue(), std::nullopt);
    device.runLoop->dispatch(3, [] {});
    device.runLoop->dispatch(2, [] {});
    EXPECT_EQ(device.runLoop->nextDue(), 2);
}

TEST_F(RunLoopTest, CancellingNeedsTheSameTargetSelectorAndObject)
{
    HostObject& target = makeRecorder();
    HostObject& otherTarget = makeRecorder();
    HostObject& object = makeRecorder();
    HostObject& otherObject = makeRecorder();
    object.name = "object";
    otherObject.name = "otherObject";
    device.runLoop->perform(&target, selector("third:"), &object, 1);
    device.runLoop->cancelPerforms(&otherTarget, selector("third:"), &object);
    device.runLoop->cancelPerforms(&target, selector("first"), &object);
    device.runLoop->cancelPerforms(&target, selector("third:"), &otherObject);
    device.runLoop->cancelPerforms(&target, selector("third:"), nullptr);
    EXPECT_EQ(device.runLoop->pendingCount(), 1u);
    device.runLoop->cancelPerforms(&target, selector("third:"), &object);
    EXPECT_EQ(device.runLoop->pendingCount(), 0u);
    device.runLoop->wait(2);
    EXPECT_THAT(calls, IsEmpty());
}

TEST_F(RunLoopTest, CancellingRemovesEveryPerformOfItsKind)
{
    HostObject& target = makeRecorder();
    for (const double delay : { 1.0, 2.0, 3.0 })
        device.runLoop->perform(&target, selector("first"), nullptr, delay);
    device.runLoop->perform(&target, selector("second"), nullptr, 2);
    device.runLoop->cancelPerforms(&target, selector("first"), nullptr);
    device.runLoop->wait(4);
    EXPECT_THAT(calls, ElementsAre("2 second"));
}

TEST_F(RunLoopTest, WhatHasRunIsNoLongerThereToBeCancelled)
{
    HostObject& target = makeRecorder();
    device.runLoop->perform(&target, selector("first"), nullptr, 1);
    device.runLoop->perform(&target, selector("first"), nullptr, 2);
    device.runLoop->wait(1);
    device.runLoop->cancelPerforms(&target, selector("first"), nullptr);
    device.runLoop->wait(2);
    EXPECT_THAT(calls, ElementsAre("1 first"));
    EXPECT_EQ(target.references, 1u);
}

TEST_F(RunLoopTest, CancellingIsReportedWhetherOrNotAnythingWasPending)
{
    HostObject& target = makeRecorder();
    device.runLoop->cancelPerforms(&target, selector("third:"), nullptr);
    ASSERT_EQ(eventsOf("cancel").size(), 1u);
    EXPECT_EQ(
        events[0], (Json { { "t", 0.0 }, { "event", "cancel" }, { "selector", "third:" }, { "object", nullptr } }));
}

TEST_F(RunLoopTest, APerformKeepsItsTargetAndItsObjectAliveUntilItHasRun)
{
    const std::size_t before = device.classes->liveObjects();
    HostObject& target = makeRecorder();
    HostObject& object = makeRecorder();
    object.name = "object";
    device.runLoop->perform(&target, selector("third:"), &object, 1);
    release(&target);
    release(&object);
    EXPECT_EQ(device.classes->liveObjects(), before + 2);
    device.runLoop->wait(1);
    EXPECT_THAT(calls, ElementsAre("1 third: object"));
    EXPECT_EQ(device.classes->liveObjects(), before);
}

TEST_F(RunLoopTest, ACancelledPerformLetsItsTargetAndItsObjectGo)
{
    const std::size_t before = device.classes->liveObjects();
    HostObject& target = makeRecorder();
    HostObject& object = makeRecorder();
    device.runLoop->perform(&target, selector("third:"), &object, 1);
    device.runLoop->perform(&target, selector("third:"), &object, 2);
    device.runLoop->cancelPerforms(&target, selector("third:"), &object);
    release(&target);
    release(&object);
    EXPECT_EQ(device.classes->liveObjects(), before);
}

TEST_F(RunLoopTest, PerformingOnNothingAsksForNothing)
{
    device.runLoop->perform(nullptr, selector("first"), nullptr, 0);
    EXPECT_THAT(events, IsEmpty());
    EXPECT_EQ(device.runLoop->pendingCount(), 0u);
}

TEST_F(RunLoopTest, PendingListsThePerformsInTheOrderOfTheQueue)
{
    HostObject& target = makeRecorder();
    HostObject& object = makeRecorder();
    object.name = "_volumeView3";
    device.runLoop->perform(&target, selector("third:"), &object, 2);
    device.runLoop->dispatch(0.5, [] {});
    device.runLoop->defer([] {});
    device.runLoop->perform(&target, selector("first"), nullptr, 1);
    EXPECT_EQ(device.runLoop->pending(),
        Json::array({ Json { { "selector", "first" }, { "object", nullptr }, { "due", 1.0 } },
            Json { { "selector", "third:" }, { "object", "_volumeView3" }, { "due", 2.0 } } }));
    EXPECT_EQ(device.runLoop->pendingCount(), 4u);
}

TEST_F(RunLoopTest, PerformsAndBlocksAreReportedWhenAskedForAndWhenTheyBegin)
{
    HostObject& target = makeRecorder();
    device.runLoop->perform(&target, selector("first"), nullptr, 0.25);
    device.runLoop->dispatch(0.1, [this] { device.trace("launched"); });
    device.runLoop->defer([] {});
    device.runLoop->wait(1);
    EXPECT_EQ(events,
        (std::vector<Json> {
            { { "t", 0.0 }, { "event", "schedule" }, { "selector", "first" }, { "object", nullptr },
                { "delay", 0.25 } },
            { { "t", 0.0 }, { "event", "dispatch" }, { "delay", 0.1 } },
            { { "t", 0.1 }, { "event", "dispatched" } },
            { { "t", 0.1 }, { "event", "launched" } },
            { { "t", 0.25 }, { "event", "perform" }, { "selector", "first" }, { "object", nullptr } },
        }));
}

TEST_F(RunLoopTest, TheAutoreleasePoolIsDrainedWhenATurnEnds)
{
    const std::size_t before = device.classes->liveObjects();
    String* const string = autoreleasedString("for a while");
    EXPECT_EQ(string->text, "for a while");
    EXPECT_EQ(device.classes->liveObjects(), before + 1);
    device.runLoop->turn();
    EXPECT_EQ(device.classes->liveObjects(), before);
}

TEST_F(RunLoopTest, WhatABlockCapturedLivesUntilItHasRun)
{
    const auto captured = std::make_shared<int>(7);
    device.runLoop->dispatch(1, [captured] {});
    EXPECT_EQ(captured.use_count(), 2);
    device.runLoop->wait(1);
    EXPECT_EQ(captured.use_count(), 1);
}

} // namespace
} // namespace panotra::sim
