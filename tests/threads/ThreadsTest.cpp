/// A home screen that announces, sets, asks, plays and turns on four threads of its own, while on the main thread
/// somebody drags, presses and dismisses. Compiled and run under the thread sanitizer.
///
///   threads_tests [SYSTEM]   every call reaches the host, and every object is given back; SYSTEM is the shape of the
///                            process, 9 to 16
///   threads_tests --bare     calls a hook past its entry, which the sanitizer must find
#include "hooks/Panotra.h"
#include "simulator/LinkedLibrary.h"
#include "simulator/device/ClassTable.h"
#include "simulator/device/HomeScreen.h"
#include "simulator/device/Preferences.h"
#include "simulator/device/RunLoop.h"
#include "simulator/device/Screen.h"
#include "simulator/device/Services.h"
#include "simulator/device/SystemShape.h"
#include "simulator/device/Values.h"
#include "simulator/device/View.h"
#include "simulator/systems/Systems.h"
#include "tests/threads/Methods.h"

#include <array>
#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <string_view>
#include <thread>
#include <vector>

namespace {

using namespace panotra;
using testing::isLater;
using testing::Methods;

constexpr int threadCount = 4;
constexpr int roundsOfAThread = 1000;

int failures = 0;

void expect(bool holds, const char* what, long found, long expected)
{
    if (holds)
        return;
    ++failures;
    std::fprintf(stderr, "%s: found %ld, expected %ld\n", what, found, expected);
}

/// How often each method was called from outside, and how often the host's own implementation of it ran.
struct Count {
    std::atomic<long> asked = 0;
    std::atomic<long> ran = 0;
};
struct Counts {
    Count announcement, setVolume, activeVolume, sound, ringer, indicator, volumeIndicator, reorientation, statusBar;
};
Counts counts;

sim::Device* device = nullptr;

/// The host's own implementations. Those that answer are called on any thread: like a real audio service they look
/// after themselves, and touch nothing else. The others must find themselves on the main thread.
void runOnMainThread(Count& count)
{
    ++count.ran;
    if (!device->isMainThread()) {
        std::fprintf(stderr, "the host's own implementation runs on another thread than the main one\n");
        std::abort();
    }
}

void announced(id, SEL, id)
{
    runOnMainThread(counts.announcement);
}
void ringerMuted(id, SEL, bool)
{
    runOnMainThread(counts.ringer);
}
void indicatorShown(id, SEL, id, double)
{
    runOnMainThread(counts.indicator);
}
void volumeIndicatorShown(id, SEL, std::int32_t, float)
{
    runOnMainThread(counts.volumeIndicator);
}
void reoriented(id, SEL, bool)
{
    runOnMainThread(counts.reorientation);
}
void statusBarMoved(id, SEL, sim::Rect)
{
    runOnMainThread(counts.statusBar);
}

// Of later systems.

void laterIndicatorShown(id, SEL, id, bool)
{
    runOnMainThread(counts.indicator);
}
void laterVolumeIndicatorShown(id, SEL, float)
{
    runOnMainThread(counts.volumeIndicator);
}
void ringerIndicatorShown(id, SEL, std::int32_t)
{
    runOnMainThread(counts.indicator);
}
void newestRingerIndicatorShown(id, SEL, std::int32_t, float, std::uint64_t)
{
    runOnMainThread(counts.indicator);
}
void turned(id, SEL, std::int64_t, double, id)
{
    runOnMainThread(counts.reorientation);
}

bool volumeSet(id, SEL, float, id)
{
    ++counts.setVolume.ran;
    return true;
}

bool soundPlayed(id, SEL, id, std::int64_t, id)
{
    ++counts.sound.ran;
    return true;
}

HostObject* activeCategory = nullptr;

/// Every other time there is no answer, and poison where the name would be.
bool activeVolumeAsked(id, SEL, float* level, id* name, id)
{
    const bool isAnswered = ++counts.activeVolume.ran % 2 == 0;
    *level = 0.5F;
    *name = isAnswered ? activeCategory : reinterpret_cast<HostObject*>(std::uintptr_t { 0xdead });
    return isAnswered;
}

template <typename Function> void replace(const char* className, const char* name, Function* function)
{
    device->classes->platformClass(className).methods[sim::selector(name)] = sim::implementation(function);
}

void installHost()
{
    replace("AVSystemController", "postEffectiveVolumeNotification:", announced);
    replace("AVSystemController", "setVolumeTo:forCategory:", volumeSet);
    replace("AVSystemController", "getActiveCategoryVolume:andName:fallbackCategory:", activeVolumeAsked);
    replace("SBSoundController", "playSound:environments:completion:", soundPlayed);
    replace("UIStatusBar", "setFrame:", statusBarMoved);
    if (!isLater()) {
        replace("SBMediaController", "setRingerMuted:", ringerMuted);
        replace("SBHUDController", "presentHUDView:autoDismissWithDelay:", indicatorShown);
        replace("SBHUDController", "reorientHUDIfNeeded:", reoriented);
        replace("VolumeControl", "_presentVolumeHUDWithMode:volume:", volumeIndicatorShown);
        return;
    }
    replace("SBRingerControl", "setRingerMuted:", ringerMuted);
    replace("SBRingerControl", "activateRingerHUDFromMuteSwitch:", ringerIndicatorShown);
    if (device->system == systems::newest)
        replace("SBRingerControl", "activateRingerHUD:withInitialVolume:fromSource:", newestRingerIndicatorShown);
    replace("SBHUDController", "_presentHUD:animated:", laterIndicatorShown);
    replace("SBVolumeControl", "_presentVolumeHUDWithVolume:", laterVolumeIndicatorShown);
    replace("SpringBoard", "noteInterfaceOrientationChanged:duration:logMessage:", turned);
}

sim::Dictionary* makeAnnouncement(const char* category, const char* reason, double level)
{
    sim::ClassTable& classes = *device->classes;
    auto* const made = classes.make<sim::Dictionary>("NSDictionary");
    made->adopt(sim::currentKey(*device, "AudioCategory"), classes.make<sim::String>("NSString", category));
    made->adopt(sim::currentKey(*device, "AudioVolumeChangeReason"), classes.make<sim::String>("NSString", reason));
    made->adopt(sim::currentKey(*device, "AudioVolume"), classes.make<sim::Number>("NSNumber", level));
    return made;
}

/// What the threads hand over. Counted once each, by this program.
struct Objects {
    std::array<HostObject*, 4> announcements {
        makeAnnouncement("Audio/Video", "ExplicitVolumeChange", 0.25),
        makeAnnouncement("Audio/Video", "ExplicitVolumeChange", 0.75),
        makeAnnouncement("Audio/Video", "RouteChange", 0.5),
        makeAnnouncement("Ringtone", "CategoryChange", 0.5),
    };
    HostObject* category = device->classes->make<sim::String>("NSString", "Alarm");
    HostObject* view = device->classes->make<sim::View>("UIView");
    HostObject* ownLevelSound = device->classes->make<sim::Sound>("SBUISound", std::int64_t { 5 });
    HostObject* borrowingSound = device->classes->make<sim::Sound>("SBUISound", std::int64_t { 1 });

    std::vector<HostObject*> all() const
    {
        std::vector<HostObject*> each(announcements.begin(), announcements.end());
        each.insert(each.end(), { category, view, ownLevelSound, borrowingSound });
        return each;
    }
};

/// One thread of the home screen's.
void live(const Methods& methods, const Objects& objects, HostObject* sound, int number)
{
    for (int round = 0; round < roundsOfAThread; ++round) {
        methods.announce(
            objects.announcements[static_cast<std::size_t>(round + number) % objects.announcements.size()]);
        ++counts.announcement.asked;
        methods.setVolume(static_cast<float>(round % 16) / 16, objects.category);
        ++counts.setVolume.asked;
        float level = 0;
        HostObject* name = nullptr;
        methods.activeVolume(&level, &name, nullptr);
        ++counts.activeVolume.asked;
        methods.presentVolumeIndicator(round % 3, level);
        switch (round % 8) {
        case 0:
            methods.play(sound, 0, nullptr);
            ++counts.sound.asked;
            break;
        case 2:
            methods.muteRinger(round % 16 == 2);
            ++counts.ringer.asked;
            break;
        case 4:
            methods.turn(1 + round / 8 % 4);
            ++counts.reorientation.asked;
            break;
        case 6:
            methods.moveStatusBar({ 0, 0, 320, 20 });
            ++counts.statusBar.asked;
            methods.presentIndicator(objects.view);
            methods.presentRingerIndicator(number);
            break;
        default:
            break;
        }
    }
}

/// A while on the main thread.
void pass(int step)
{
    sim::HomeScreen& home = *device->home;
    switch (step % 12) {
    case 0:
        device->preferences->set("net.qorvath.panotra", "replaceHUD", step % 24 == 0);
        device->preferences->set("net.qorvath.panotra", "activeStyle", step / 12 % 2);
        home.notify("net.qorvath.panotra.settingschanged");
        break;
    case 1:
        home.notify("net.qorvath.panotra.uikitshaken");
        break;
    case 3:
        home.pan(step % 12, 1, 40);
        break;
    case 4:
    case 5:
        home.pan(step % 12, 2, step % 300);
        break;
    case 6:
        home.pan(step % 12, 3, 80);
        break;
    case 8:
        device->screen->orientation = 1 + step % 4;
        break;
    case 10:
        home.sendActivatorEvent("net.qorvath.panotra.dismissmixer");
        break;
    default:
        break;
    }
    device->runLoop->wait(0.05);
}

/// All threads with that sound, until they are done and what they left is too.
void run(const Methods& methods, const Objects& objects, HostObject* sound)
{
    std::atomic<int> running = threadCount;
    std::vector<std::thread> threads;
    for (int number = 0; number < threadCount; ++number) {
        threads.emplace_back([&, number] {
            live(methods, objects, sound, number);
            --running;
        });
    }
    for (int step = 0; running > 0; ++step)
        pass(step);
    for (std::thread& thread : threads)
        thread.join();
    device->runLoop->turn();
}

void dismiss()
{
    device->runLoop->wait(1);
    device->home->sendActivatorEvent("net.qorvath.panotra.dismissmixer");
    device->runLoop->wait(100);
}

void expectAll(const char* what, const Count& count)
{
    expect(count.ran == count.asked, what, count.ran, count.asked);
}

void runEverything(const sim::Library& library)
{
    installHost();
    library.load();
    device->home->finishLaunching();
    const Methods methods;
    const Objects objects;
    activeCategory = objects.category;
    dismiss();
    run(methods, objects, objects.ownLevelSound);
    dismiss();
    const std::size_t living = device->classes->liveObjects();
    expectAll("announcements that reached the host", counts.announcement);
    expectAll("calls of the ringer", counts.ringer);
    expectAll("turns", counts.reorientation);
    expectAll("frames of the status bar", counts.statusBar);
    expectAll("sounds", counts.sound);
    expectAll("questions for the active volume", counts.activeVolume);
    expect(counts.setVolume.ran >= counts.setVolume.asked, "volumes set", counts.setVolume.ran, counts.setVolume.asked);

    // Each of these sounds may hold one announcement back, and no more.
    const long announcedBefore = counts.announcement.ran;
    const long askedBefore = counts.announcement.asked;
    const long soundsBefore = counts.sound.asked;
    run(methods, objects, objects.borrowingSound);
    dismiss();
    const long held = (counts.announcement.asked - askedBefore) - (counts.announcement.ran - announcedBefore);
    const long sounds = counts.sound.asked - soundsBefore;
    expect(held > 0 && held <= sounds, "announcements held back", held, sounds);
    expectAll("sounds", counts.sound);

    const std::size_t livingNow = device->classes->liveObjects();
    expect(livingNow == living, "objects alive", static_cast<long>(livingNow), static_cast<long>(living));
    expect(device->home->window() == nullptr, "windows", 1, 0);
    for (HostObject* const object : objects.all()) {
        const bool isSeed = object == activeCategory; // kept by whoever asked first, until the next announcement
        const auto references = static_cast<long>(object->references);
        expect(references == 1 || isSeed, "references of an object that was handed over", references, 1);
    }
    std::printf("%ld calls from %d threads\n",
        counts.announcement.asked + counts.setVolume.asked + counts.activeVolume.asked + counts.sound.asked,
        threadCount);
}

/// What the entries are there to prevent.
void runBare(const sim::Library& library)
{
    installHost();
    library.load();
    hooks::setVolumeTo(nullptr, nullptr, 0.5F, nullptr); // from here on the indicator stays away
    std::thread other([] { hooks::presentVolumeHUD(nullptr, nullptr, 0.5F); });
    hooks::setVolumeTo(nullptr, nullptr, 0.25F, nullptr);
    other.join();
}

} // namespace

int main(int count, char** arguments)
{
    sim::Device made;
    device = &made;
    const std::string_view choice = count > 1 ? arguments[1] : "";
    if (const int system = std::atoi(arguments[count - 1]); system != 0)
        sim::takeShape(made, system);
    const sim::Library library = sim::loadedLibrary();
    if (choice == "--bare")
        runBare(library);
    else
        runEverything(library);
    return failures == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}
