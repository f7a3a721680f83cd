/// The classes of the home screen and of the audio service.
#include "tests/hosts/classes/SpringBoard.h"

#include "simulator/device/HomeScreen.h"
#include "simulator/device/SharedObjects.h"
#include "tests/hosts/DeviceCalls.h"
#include "tests/hosts/Values.h"

using namespace panotra;

id sharedObject(const char* className)
{
    return hosts::hostObjectFor(hosts::device().home->shared(className));
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

/// Brings the instance variables up to date: the buttons are the device's.
- (id)updated
{
    const sim::HomeScreen& home = *hosts::device().home;
    _mode = home.volumeMode;
    _volumeUpButtonIsDown = home.volumeUpIsDown;
    _volumeDownButtonIsDown = home.volumeDownIsDown;
    return self;
}

+ (id)sharedVolumeControl
{
    return [sharedObject("VolumeControl") updated];
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

@implementation AXSpringBoardServer

+ (id)server
{
    return sharedObject("AXSpringBoardServer");
}

- (BOOL)isSiriVisible
{
    return hosts::device().home->assistantVisible;
}

- (void)openSiri
{
    hosts::callOwn<void>("AXSpringBoardServer", hosts::peerOf(self), _cmd);
}

- (void)dismissSiri
{
    hosts::callOwn<void>("AXSpringBoardServer", hosts::peerOf(self), _cmd);
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
