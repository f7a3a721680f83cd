/// Odd values, and days that nobody lives.
#include "tests/hosts/HostileSteps.h"

#include "simulator/device/HomeScreen.h"
#include "simulator/device/Preferences.h"
#include "simulator/device/RunLoop.h"
#include "simulator/device/Screen.h"
#include "simulator/device/Touches.h"
#include "tests/hosts/classes/SpringBoard.h"
#include "tests/support/KnownFacts.h"

#include <nlohmann/json.hpp>

#include <objc/runtime.h>

#include <climits>
#include <iterator>
#include <limits>
#include <optional>

namespace panotra::testing {

namespace {

/// Sounds of this type have no level of their own.
constexpr unsigned ringerLevelSoundType = 5;

/// The gesture framework asks for a title, and sends an event.
void askListener(id name, id event)
{
    const id listener = [objc_lookUpClass("PNOHelperController") performSelector:@selector(sharedInstance)];
    if (listener == nil)
        return;
    const SEL title = sel_registerName("activator:requiresLocalizedTitleForListenerName:");
    [listener performSelector:title withObject:nil withObject:name];
    const SEL receive = sel_registerName("activator:receiveEvent:forListenerName:");
    using Receive = void (*)(id, SEL, id, id, id);
    reinterpret_cast<Receive>(class_getMethodImplementation(object_getClass(listener), receive))(
        listener, receive, nil, event, name);
}

} // namespace

NSArray* oddValues()
{
    const double huge = std::numeric_limits<double>::max();
    const double infinite = std::numeric_limits<double>::infinity();
    const double none = std::numeric_limits<double>::quiet_NaN();
    NSString* const longText = [@"" stringByPaddingToLength:100000 withString:@"volume " startingAtIndex:0];
    return [NSArray arrayWithObjects:[NSNull null], @"", @"Audio/Video", @"ExplicitVolumeChange", @"-1e400", @"\u00e9",
                    longText, [NSNumber numberWithDouble:huge], [NSNumber numberWithDouble:-huge],
                    [NSNumber numberWithDouble:infinite], [NSNumber numberWithDouble:none],
                    [NSNumber numberWithFloat:0.5f], [NSNumber numberWithLongLong:LLONG_MIN],
                    [NSNumber numberWithUnsignedLongLong:ULLONG_MAX], [NSNumber numberWithBool:YES], [NSArray array],
                    [NSArray arrayWithObject:@"Ringtone"], [NSDictionary dictionary], [NSData data],
                    [[NSObject new] autorelease], [NSObject class], nil];
}

NSDictionary* announcementOf(id category, id reason, id level)
{
    NSMutableDictionary* const made = [NSMutableDictionary dictionary];
    if (category != nil)
        [made setObject:category forKey:@"AudioCategory"];
    if (reason != nil)
        [made setObject:reason forKey:@"AudioVolumeChangeReason"];
    if (level != nil)
        [made setObject:level forKey:@"AudioVolume"];
    return made;
}

void liveADay(sim::Device& device, const std::function<void(double)>& pass)
{
    sim::HomeScreen& home = *device.home;
    for (const bool replaces : { false, true }) {
        for (const std::int64_t style : { 0, 1 }) {
            device.preferences->set("net.qorvath.panotra", "replaceHUD", replaces);
            device.preferences->set("net.qorvath.panotra", "activeStyle", style);
            home.notify("net.qorvath.panotra.settingschanged");
            home.getActiveCategoryVolume(true);
            home.announce("Audio/Video", "RouteChange", 0.75f);
            home.press(sim::Button::Up);
            home.release(sim::Button::Up);
            pass(1);
            home.presentHUD(1);
            home.reorientHUD(true);
            home.setStatusBarFrame("UIStatusBar", 0, 0, 320, 20);
            home.setRingerMuted(replaces);
            home.playSound(1);
            home.playSound(std::nullopt);
            home.setVolume("Alarm", 0.5f);
            home.motionBegan(1);
            home.notify("net.qorvath.panotra.uikitshaken");
            home.askActivator("title", "net.qorvath.panotra.mixer");
            home.askActivator("icon", "net.qorvath.panotra.mixer");
            home.sendActivatorEvent("net.qorvath.panotra.mixer");
            home.pan(0, 1, 30);
            home.pan(0, 2, 60);
            home.pan(0, 3, 60);
            device.touches->down(160, 240);
            device.touches->move(190, 240);
            device.touches->up();
            home.notify("com.apple.springboard.screenchanged");
            pass(100);
        }
    }
}

std::size_t doAnything(sim::Device& device, int count, const std::function<unsigned(unsigned sides)>& roll)
{
    NSArray* const values = oddValues();
    const auto any = [&]() -> id {
        const unsigned choice = roll(static_cast<unsigned>([values count]) + 3);
        return choice < [values count] ? [values objectAtIndex:choice] : nil;
    };
    const auto key = [&](id expected) -> id {
        return roll(2) == 0 ? expected : any();
    };
    // The order in which arguments are made is the compiler's: what is rolled has a name first.
    const auto point = [&]() -> sim::Point {
        const unsigned x = roll(400);
        const unsigned y = roll(700);
        return { static_cast<double>(x), static_cast<double>(y) };
    };
    AVSystemController* const audio = [AVSystemController sharedAVSystemController];
    std::size_t announced = 0;
    for (int step = 0; step < count; ++step) {
        NSAutoreleasePool* const pool = [NSAutoreleasePool new];
        switch (roll(19)) {
        case 0:
        case 1:
        case 2: {
            const id category = key(@"Audio/Video");
            const id reason = key(@"ExplicitVolumeChange");
            const id level = any();
            [audio postEffectiveVolumeNotification:announcementOf(category, reason, level)];
            ++announced;
            break;
        }
        case 3: {
            const float level = static_cast<float>(roll(100)) / 50;
            const id category = any();
            [audio setVolumeTo:level forCategory:category];
            break;
        }
        case 4:
            device.home->notify("net.qorvath.panotra.uikitshaken");
            break;
        case 5: {
            const char* const setting = roll(2) == 0 ? "replaceHUD" : "activeStyle";
            const auto value = static_cast<int>(roll(3));
            device.preferences->set("net.qorvath.panotra", setting, value);
            device.home->notify("net.qorvath.panotra.settingschanged");
            break;
        }
        case 6:
            device.screen->orientation = roll(6);
            device.home->reorientHUD(true);
            break;
        case 7: {
            const auto slot = static_cast<int>(roll(std::size(knownSliders)));
            const unsigned state = roll(6);
            const unsigned way = roll(400);
            device.home->pan(slot, state, way);
            break;
        }
        case 8: {
            const sim::Point first = point();
            const sim::Point second = point();
            device.touches->down(first.x, first.y);
            device.touches->move(second.x, second.y);
            device.touches->up();
            break;
        }
        case 9: {
            const id name = key(@"net.qorvath.panotra.presentdismissmixer");
            askListener(name, any());
            break;
        }
        case 10: {
            const unsigned type = roll(8);
            const bool isTyped = type < 7;
            device.home->playSound(isTyped ? std::optional<std::int64_t>(type) : std::nullopt);
            if (isTyped && type != ringerLevelSoundType)
                device.home->announceChange("Ringtone", 0.5f); // of the sound's own level: swallowed
            break;
        }
        case 11:
            device.home->setRingerMuted(roll(2) == 0);
            break;
        case 12:
            device.home->presentHUD(roll(5));
            device.home->presentVolumeHUD(roll(3), 0.5f);
            break;
        case 13:
            device.home->motionBegan(roll(3));
            break;
        case 14: {
            const char* const statusBar = roll(2) == 0 ? "UIStatusBar" : "_UIStatusBar";
            const unsigned width = roll(400);
            device.home->setStatusBarFrame(statusBar, 0, 0, width, roll(50));
            break;
        }
        case 15:
            device.home->getActiveCategoryVolume(roll(2) == 0);
            break;
        case 16:
            device.home->finishLaunching();
            break;
        case 17: {
            const sim::Button button = roll(2) == 0 ? sim::Button::Up : sim::Button::Down;
            device.home->press(button);
            ++announced;
            if (roll(2) == 0)
                device.home->release(button);
            break;
        }
        default:
            device.runLoop->wait(roll(30) / 10.0);
        }
        device.runLoop->turn();
        [pool drain];
    }
    return announced;
}

} // namespace panotra::testing
