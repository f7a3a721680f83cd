/// Own implementations of the application, events, the assistant, other overlays and the gesture framework.
#include "simulator/device/ClassTable.h"
#include "simulator/device/EventFields.h"
#include "simulator/device/HomeScreen.h"
#include "simulator/device/PlatformMethods.h"
#include "simulator/device/Screen.h"
#include "simulator/device/SharedObjects.h"
#include "simulator/device/Values.h"

#include <nlohmann/json.hpp>

namespace panotra::sim {

namespace {

// UIApplication and SpringBoard

void applicationDidFinishLaunching(HostObject*, Selector, HostObject*)
{
    process().trace("launched");
}

std::int64_t activeInterfaceOrientation(HostObject*, Selector)
{
    return process().screen->orientation;
}

HostObject* statusBar(HostObject*, Selector)
{
    return process().home->statusBar();
}

double windowRotationDuration(HostObject*, Selector)
{
    return process().home->rotationDuration;
}

bool isSpringBoardStatusBarHidden(HostObject*, Selector)
{
    return process().screen->statusBarHidden;
}

// Events

std::int64_t eventType(HostObject* self, Selector)
{
    return static_cast<Event*>(self)->type;
}

void motionBegan(HostObject*, Selector, std::int64_t, HostObject* event)
{
    process().trace("motion", [event](EventFields& fields) {
        const auto* const motion = dynamic_cast<const Event*>(event);
        fields.add("type", motion == nullptr ? Json() : Json(motion->type));
    });
}

// The voice assistant

void traceAssistant(const char* action)
{
    process().trace("assistant", [action](EventFields& fields) { fields.add("action", action); });
}

bool isSiriVisible(HostObject*, Selector)
{
    return process().home->assistantVisible;
}

void openSiri(HostObject*, Selector)
{
    traceAssistant("openSiri");
}

void dismissSiri(HostObject*, Selector)
{
    traceAssistant("dismissSiri");
}

HostObject* assistantWindow(HostObject* self, Selector)
{
    return static_cast<AssistantController*>(self)->window;
}

// Other overlays

HostObject* visibilityManager(HostObject* self, Selector)
{
    return static_cast<VolumeHUDManager*>(self)->visibilityManager;
}

HostObject* targetView(HostObject* self, Selector)
{
    return static_cast<VolumeHUDManager*>(self)->targetView;
}

void hideImmediatelyIfPossible(HostObject*, Selector)
{
    process().trace("overlay",
        [](EventFields& fields) { fields.add("class", "ABVolumeHUDManager", "action", "hideImmediatelyIfPossible"); });
}

// The gesture framework

void registerListener(HostObject*, Selector, HostObject* listener, HostObject* name)
{
    if (const std::string* const text = textOf(name))
        process().home->registerListener(listener, *text);
}

void setHandled(HostObject* self, Selector, bool handled)
{
    if (handled)
        process().trace("handled",
            [self](EventFields& fields) { fields.add("listener", static_cast<const GestureEvent*>(self)->listener); });
}

} // namespace

void addHomeScreenMethods(ClassTable& classes)
{
    const PlatformMethod methods[] = {
        { "SpringBoard", "applicationDidFinishLaunching:", implementation(applicationDidFinishLaunching) },
        { "UIApplication", "activeInterfaceOrientation", implementation(activeInterfaceOrientation) },
        { "UIApplication", "statusBar", implementation(statusBar) },
        { "SpringBoard", "windowRotationDuration", implementation(windowRotationDuration) },
        { "SpringBoard", "isSpringBoardStatusBarHidden", implementation(isSpringBoardStatusBarHidden) },
        { "UIEvent", "type", implementation(eventType) },
        { "UIResponder", "motionBegan:withEvent:", implementation(motionBegan) },
        { "AXSpringBoardServer", "isSiriVisible", implementation(isSiriVisible) },
        { "AXSpringBoardServer", "openSiri", implementation(openSiri) },
        { "AXSpringBoardServer", "dismissSiri", implementation(dismissSiri) },
        { "SBAssistantController", "window", implementation(assistantWindow) },
        { "ABVolumeHUDManager", "visibilityManager", implementation(visibilityManager) },
        { "ABVolumeHUDManager", "targetView", implementation(targetView) },
        { "ABVolumeHUDVisibilityManager", "hideImmediatelyIfPossible", implementation(hideImmediatelyIfPossible) },
        { "LAActivator", "registerListener:forName:", implementation(registerListener) },
        { "LAEvent", "setHandled:", implementation(setHandled) },
    };
    addMethods(classes, methods);
}

} // namespace panotra::sim
