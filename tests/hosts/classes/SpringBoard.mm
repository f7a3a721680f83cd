/// The classes of the home screen and of the audio service.
#include "tests/hosts/classes/SpringBoard.h"

#include "simulator/device/EventFields.h"
#include "simulator/device/HomeScreen.h"
#include "simulator/device/Saturated.h"
#include "simulator/device/SharedObjects.h"
#include "tests/hosts/DeviceCalls.h"
#include "tests/hosts/Hostility.h"
#include "tests/hosts/Values.h"

#include <nlohmann/json.hpp>

#include <objc/runtime.h>

using namespace panotra;

id sharedObject(const char* className)
{
    return hosts::hostObjectFor(hosts::device().home->shared(className));
}

namespace {

/// An instance variable by its name, in the type that the object's class gives it.
void setVariable(id object, const char* name, std::int64_t value)
{
    const Ivar variable = class_getInstanceVariable(object_getClass(object), name);
    void* const place = reinterpret_cast<char*>(object) + ivar_getOffset(variable);
    switch (*ivar_getTypeEncoding(variable)) {
    case 'i':
        *static_cast<std::int32_t*>(place) = sim::saturated<std::int32_t>(value);
        break;
    case 'q':
    case 'Q':
        *static_cast<std::int64_t*>(place) = value;
        break;
    default:
        *static_cast<char*>(place) = value != 0;
    }
}

} // namespace

id updatedButtons(id buttons)
{
    if (buttons == nil)
        return nil;
    const sim::HomeScreen& home = *hosts::device().home;
    setVariable(buttons, "_mode", home.volumeMode);
    setVariable(buttons, "_volumeUpButtonIsDown", home.volumeUpIsDown);
    setVariable(buttons, "_volumeDownButtonIsDown", home.volumeDownIsDown);
    return buttons;
}

// The audio service.

@implementation AVSystemController

+ (id)sharedAVSystemController
{
    return sharedObject("AVSystemController");
}

- (void)postEffectiveVolumeNotification:(id)announcement
{
    hosts::callOwn<void>("AVSystemController", hosts::peerOf(self), _cmd, hosts::deviceObjectFor(announcement));
}

- (BOOL)getActiveCategoryVolume:(float*)level andName:(id*)name fallbackCategory:(id)fallback
{
    HostObject* category = nullptr;
    const bool result = hosts::callOwn<bool>("AVSystemController", hosts::peerOf(self), _cmd, level,
        name == nullptr ? nullptr : &category, hosts::deviceObjectFor(fallback));
    if (hosts::refusesThisTime()) {
        if (name != nullptr)
            *name = reinterpret_cast<id>(std::uintptr_t { 0xdead });
        return NO;
    }
    if (name != nullptr)
        *name = hosts::hostObjectFor(category);
    return result;
}

- (BOOL)setVolumeTo:(float)level forCategory:(id)category
{
    return hosts::callOwn<bool>(
        "AVSystemController", hosts::peerOf(self), _cmd, level, hosts::deviceObjectFor(category));
}

- (BOOL)getVolume:(float*)level forCategory:(id)category
{
    return hosts::callOwn<bool>(
        "AVSystemController", hosts::peerOf(self), _cmd, level, hosts::deviceObjectFor(category));
}

- (id)attributeForKey:(id)key
{
    return hosts::hostObjectFor(
        hosts::callOwn<HostObject*>("AVSystemController", hosts::peerOf(self), _cmd, hosts::deviceObjectFor(key)));
}

@end

// The home screen's program.

@implementation SpringBoard

- (void)applicationDidFinishLaunching:(id)application
{
    hosts::callOwn<void>("SpringBoard", hosts::peerOf(self), _cmd, hosts::deviceObjectFor(application));
}

- (double)windowRotationDuration
{
    return hosts::device().home->rotationDuration;
}

- (BOOL)isSpringBoardStatusBarHidden
{
    return hosts::callOwn<bool>("SpringBoard", hosts::peerOf(self), _cmd);
}

@end

@implementation VolumeControl

+ (id)sharedVolumeControl
{
    return updatedButtons(sharedObject("VolumeControl"));
}

- (void)_presentVolumeHUDWithMode:(int)mode volume:(float)volume
{
    hosts::callOwn<void>("VolumeControl", hosts::peerOf(self), _cmd, std::int32_t { mode }, volume);
}

@end

@implementation SBHUDController

- (void)presentHUDView:(id)view autoDismissWithDelay:(double)delay
{
    hosts::callOwn<void>("SBHUDController", hosts::peerOf(self), _cmd, hosts::deviceObjectFor(view), delay);
}

- (void)reorientHUDIfNeeded:(BOOL)flag
{
    hosts::callOwn<void>("SBHUDController", hosts::peerOf(self), _cmd, flag != NO);
}

@end

@implementation SBUISound

- (long)soundType
{
    return hosts::callOwn<std::int64_t>("SBUISound", hosts::peerOf(self), _cmd);
}

@end

@implementation SBSoundController

- (BOOL)playSound:(id)sound environments:(long)environments completion:(id)completion
{
    return hosts::callOwn<bool>("SBSoundController", hosts::peerOf(self), _cmd, hosts::deviceObjectFor(sound),
        std::int64_t { environments }, hosts::deviceObjectFor(completion));
}

@end

@implementation SBMediaController

- (void)setRingerMuted:(BOOL)muted
{
    hosts::callOwn<void>("SBMediaController", hosts::peerOf(self), _cmd, muted != NO);
}

@end

// The voice assistant.

/// As it is on later systems.
@interface AssistantServerWithoutOpening : NSObject
@end

@implementation AssistantServerWithoutOpening

- (BOOL)isSiriVisible
{
    return NO;
}

- (void)dismissSiri
{
    hosts::device().trace("assistant", [](sim::EventFields& fields) { fields.add("action", "dismissedUnopened"); });
}

@end

@implementation AXSpringBoardServer

+ (id)server
{
    static const id withoutOpening = [AssistantServerWithoutOpening new];
    return hosts::isHostile() ? withoutOpening : sharedObject("AXSpringBoardServer");
}

- (BOOL)isSiriVisible
{
    return hosts::device().home->assistantVisible;
}

- (BOOL)openSiri
{
    hosts::callOwn<void>("AXSpringBoardServer", hosts::peerOf(self), _cmd);
    return YES;
}

- (BOOL)dismissSiri
{
    hosts::callOwn<void>("AXSpringBoardServer", hosts::peerOf(self), _cmd);
    return YES;
}

@end

@implementation SBAssistantController

+ (id)sharedInstance
{
    return sharedObject("SBAssistantController");
}

- (id)window
{
    return hosts::hostObjectFor(hosts::peerAs<sim::AssistantController>(self)->window);
}

@end
