/// The library as a file in a home screen that announces, sets and asks on threads of its own, while on the main thread
/// somebody drags and dismisses. What the thread sanitizer sees of the same is the business of tests/threads.
#include "tests/hosts/HostTest.h"

#include "tests/hosts/HostileSteps.h"

#include <atomic>
#include <thread>

namespace panotra::testing {

namespace {

constexpr int threadCount = 4;
constexpr int roundsOfAThread = 1000;

/// How often the host's own implementations ran.
std::atomic<int> announced = 0;
std::atomic<int> announcedElsewhere = 0;
std::atomic<int> set = 0;
std::atomic<int> asked = 0;

void postOnTheMainThread(id, SEL, id)
{
    ++announced;
    if (!sim::Device::current()->isMainThread())
        ++announcedElsewhere;
}

/// Like a real audio service it looks after itself, whoever calls.
BOOL setOnAnyThread(id, SEL, float, id)
{
    ++set;
    return YES;
}

/// Every other time there is no answer, and poison where the name would be.
BOOL askOnAnyThread(id, SEL, float* level, id* name, id)
{
    const bool isAnswered = ++asked % 2 == 0;
    *level = 0.5f;
    *name = isAnswered ? @"Alarm" : reinterpret_cast<id>(std::uintptr_t { 0xdead });
    return isAnswered ? YES : NO;
}

/// One thread of the home screen's.
void callRepeatedly(AVSystemController* service, NSArray* announcements)
{
    for (int round = 0; round < roundsOfAThread; ++round) {
        NSAutoreleasePool* const pool = [NSAutoreleasePool new];
        const auto which = static_cast<NSUInteger>(round) % [announcements count];
        [service postEffectiveVolumeNotification:[announcements objectAtIndex:which]];
        [service setVolumeTo:0.25f forCategory:@"Alarm"];
        float level = 0;
        id name = nil;
        [service getActiveCategoryVolume:&level andName:&name fallbackCategory:nil];
        [pool drain];
    }
}

using Elsewhere = HostTest;

} // namespace

TEST_F(Elsewhere, ThousandsOfCallsFromOtherThreadsAllReachTheHostAndNothingIsKept)
{
    const char* const service = "AVSystemController";
    hook(service, "postEffectiveVolumeNotification:", reinterpret_cast<IMP>(postOnTheMainThread));
    hook(service, "setVolumeTo:forCategory:", reinterpret_cast<IMP>(setOnAnyThread));
    hook(service, "getActiveCategoryVolume:andName:fallbackCategory:", reinterpret_cast<IMP>(askOnAnyThread));
    launch();
    // Made on purpose: constants would not be counted.
    NSMutableArray* const announcements = [NSMutableArray array];
    for (int i = 0; i < 4; ++i)
        [announcements addObject:announcementOf(i == 3 ? @"Ringtone" : @"Audio/Video",
                                     i == 2 ? @"RouteChange" : @"ExplicitVolumeChange",
                                     [NSNumber numberWithFloat:static_cast<float>(i) / 4])];
    device.preferences->set("net.qorvath.panotra", "replaceHUD", true);
    device.home->notify("net.qorvath.panotra.settingschanged");
    pass(100);

    std::atomic<int> running = threadCount;
    std::vector<std::thread> threads;
    AVSystemController* const shared = audio();
    for (int number = 0; number < threadCount; ++number) {
        threads.emplace_back([&] {
            callRepeatedly(shared, announcements);
            --running;
        });
    }
    for (int step = 0; running > 0; ++step) {
        const int slot = step % 12;
        device.home->pan(slot, 1, 30);
        device.home->pan(slot, 2, step % 300);
        device.home->pan(slot, 3, 60);
        if (step % 3 == 0)
            device.home->sendActivatorEvent("net.qorvath.panotra.presentdismissmixer");
        pass(0.1);
    }
    for (std::thread& thread : threads)
        thread.join();
    pass(100);
    device.home->sendActivatorEvent("net.qorvath.panotra.dismissmixer");
    pass(100);

    EXPECT_EQ(announced, threadCount * roundsOfAThread);
    EXPECT_EQ(announcedElsewhere, 0);
    EXPECT_GE(set, threadCount * roundsOfAThread); // the mixer sets volumes, too
    EXPECT_EQ(asked, threadCount * roundsOfAThread);
    EXPECT_FALSE(isShown());
    EXPECT_EQ(device.classes->liveObjects("PNOVolumeView"), 0u);
    for (NSUInteger i = 0; i < [announcements count]; ++i)
        EXPECT_EQ([[announcements objectAtIndex:i] retainCount], 2u) << "the array's and the pool's";
}

} // namespace panotra::testing
