/// Own implementations of methods with which no process of the device begins: what took the place of something on a
/// later system, and the ways to shared objects. A process has those of them that its system has.
#include "simulator/device/AudioService.h"
#include "simulator/device/ClassTable.h"
#include "simulator/device/EventFields.h"
#include "simulator/device/HomeScreen.h"
#include "simulator/device/PlatformMethods.h"
#include "simulator/device/RunLoop.h"
#include "simulator/device/Screen.h"
#include "simulator/device/Values.h"
#include "simulator/device/View.h"

#include <algorithm>
#include <string_view>

namespace panotra::sim {

namespace {

// The indicator

void presentHUD(HostObject*, Selector self, HostObject*, bool)
{
    process().trace("indicator", [self](EventFields& fields) { fields.add("by", self->name); });
    const double level = process().sound->level(process().sound->categoryInUse());
    process().home->showIndicator(level, process().home->requestedStay);
}

void presentVolumeHUDWithVolume(HostObject*, Selector self, float level)
{
    process().trace(
        "indicator", [&](EventFields& fields) { fields.add("by", self->name, "level", static_cast<double>(level)); });
    process().home->showIndicator(level);
}

void activateRingerHUDFromMuteSwitch(HostObject*, Selector self, std::int32_t)
{
    process().trace("indicator", [self](EventFields& fields) { fields.add("by", self->name); });
    process().home->showIndicator(process().sound->level("Ringtone"));
}

void activateRingerHUD(HostObject*, Selector self, std::int32_t, float level, std::uint64_t)
{
    process().trace(
        "indicator", [&](EventFields& fields) { fields.add("by", self->name, "level", static_cast<double>(level)); });
    process().home->showIndicator(level);
}

void setRingerControlMuted(HostObject*, Selector, bool muted)
{
    process().trace("ringer", [muted](EventFields& fields) { fields.add("muted", muted); });
}

// The application

void noteInterfaceOrientationChanged(HostObject*, Selector, std::int64_t, double, HostObject*)
{
    process().trace("reoriented", [](EventFields& fields) { fields.add("flag", true); });
}

std::int64_t screenOrientation(HostObject*, Selector)
{
    return process().screen->orientation;
}

HostObject* statusBarForEmbeddedDisplay(HostObject*, Selector)
{
    return process().home->statusBar();
}

HostObject* activeAudioRoute(HostObject*, Selector)
{
    HostObject* const attribute = autoreleasedString("AVController_ActiveAudioRouteAttribute");
    return send<HostObject*>(process().home->shared("AVSystemController"), selector("attributeForKey:"), attribute);
}

// Windows and scenes

HostObject* connectedScenes(HostObject*, Selector)
{
    ClassTable& classes = *process().classes;
    auto* const scenes = classes.make<Set>("NSSet");
    if (HostObject* const scene = process().home->windowScene())
        scenes->add(scene);
    return classes.autorelease(scenes);
}

HostObject* screenOfScene(HostObject*, Selector)
{
    return process().home->mainScreen();
}

void setWindowScene(HostObject* self, Selector, HostObject* scene)
{
    static_cast<Window*>(self)->setScene(scene);
}

// Ways to shared objects

/// A class's name as the argument of a template.
struct ClassName {
    consteval ClassName(const char* name)
    {
        for (char* place = text; *name != '\0';)
            *place++ = *name++;
    }
    char text[32] {};
};

template <ClassName name> HostObject* sharedObject(HostObject*, Selector)
{
    return process().home->shared(name.text);
}

} // namespace

HostClass::Implementation laterImplementation(std::string_view className, std::string_view method)
{
    static const PlatformMethod methods[] = {
        { "SBHUDController", "_presentHUD:animated:", implementation(presentHUD) },
        { "SBVolumeControl", "_presentVolumeHUDWithVolume:", implementation(presentVolumeHUDWithVolume) },
        { "SBRingerControl", "setRingerMuted:", implementation(setRingerControlMuted) },
        { "SBRingerControl", "activateRingerHUDFromMuteSwitch:", implementation(activateRingerHUDFromMuteSwitch) },
        { "SBRingerControl", "activateRingerHUD:withInitialVolume:fromSource:", implementation(activateRingerHUD) },
        { "SpringBoard",
            "noteInterfaceOrientationChanged:duration:logMessage:", implementation(noteInterfaceOrientationChanged) },
        { "SpringBoard", "activeInterfaceOrientation", implementation(screenOrientation) },
        { "SpringBoard", "statusBarForEmbeddedDisplay", implementation(statusBarForEmbeddedDisplay) },
        { "SpringBoard", "volumeControl", implementation(sharedObject<"SBVolumeControl">) },
        { "SBAVSystemControllerCache", "sharedInstance", implementation(sharedObject<"SBAVSystemControllerCache">) },
        { "SBAVSystemControllerCache", "activeAudioRoute", implementation(activeAudioRoute) },
        { "VolumeControl", "sharedVolumeControl", implementation(sharedObject<"VolumeControl">) },
        { "SBVolumeControl", "sharedInstance", implementation(sharedObject<"SBVolumeControl">) },
        { "AVSystemController", "sharedAVSystemController", implementation(sharedObject<"AVSystemController">) },
        { "SBAssistantController", "sharedInstance", implementation(sharedObject<"SBAssistantController">) },
        { "AXSpringBoardServer", "server", implementation(sharedObject<"AXSpringBoardServer">) },
        { "UIApplication", "connectedScenes", implementation(connectedScenes) },
        { "UIWindowScene", "screen", implementation(screenOfScene) },
        { "UIWindow", "setWindowScene:", implementation(setWindowScene) },
    };
    const auto row = std::ranges::find_if(
        methods, [&](const PlatformMethod& each) { return className == each.className && method == each.selector; });
    return row == std::end(methods) ? nullptr : row->implementation;
}

} // namespace panotra::sim
