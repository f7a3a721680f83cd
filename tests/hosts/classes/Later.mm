/// What came with later systems, for the classes that the process of such a system is given.
#include "tests/hosts/classes/SpringBoard.h"

#include "simulator/device/HomeScreen.h"
#include "simulator/device/Screen.h"
#include "tests/hosts/DeviceCalls.h"
#include "tests/hosts/Values.h"

using namespace panotra;

// The volume buttons.

@interface LaterSBVolumeControl : DeviceObject
@end

@implementation LaterSBVolumeControl

+ (id)sharedInstance
{
    return updatedButtons(sharedObject("SBVolumeControl"));
}

- (void)_presentVolumeHUDWithVolume:(float)volume
{
    hosts::callOwn<void>("SBVolumeControl", hosts::peerOf(self), _cmd, volume);
}

@end

// The system's other indicators, and the ringer.

@interface LaterSBHUDController : DeviceObject
@end

@implementation LaterSBHUDController

- (void)_presentHUD:(id)model animated:(BOOL)animated
{
    hosts::callOwn<void>("SBHUDController", hosts::peerOf(self), _cmd, hosts::deviceObjectFor(model), animated != NO);
}

@end

@interface LaterSBRingerControl : DeviceObject
@end

@implementation LaterSBRingerControl

- (void)setRingerMuted:(BOOL)muted
{
    hosts::callOwn<void>("SBRingerControl", hosts::peerOf(self), _cmd, muted != NO);
}

- (void)activateRingerHUDFromMuteSwitch:(int)source
{
    hosts::callOwn<void>("SBRingerControl", hosts::peerOf(self), _cmd, std::int32_t { source });
}

- (void)activateRingerHUD:(int)kind withInitialVolume:(float)volume fromSource:(unsigned long)source
{
    hosts::callOwn<void>(
        "SBRingerControl", hosts::peerOf(self), _cmd, std::int32_t { kind }, volume, std::uint64_t { source });
}

@end

// The application.

@interface LaterSpringBoard : DeviceObject
@end

@implementation LaterSpringBoard

- (void)noteInterfaceOrientationChanged:(long)orientation duration:(double)duration logMessage:(id)message
{
    hosts::callOwn<void>("SpringBoard", hosts::peerOf(self), _cmd, std::int64_t { orientation }, duration,
        hosts::deviceObjectFor(message));
}

- (long)activeInterfaceOrientation
{
    return hosts::device().screen->orientation;
}

- (id)statusBarForEmbeddedDisplay
{
    return hosts::hostObjectFor(hosts::device().home->statusBar());
}

- (id)volumeControl
{
    return updatedButtons(sharedObject("SBVolumeControl"));
}

@end

// The home screen's memory of the audio service.

@interface LaterSBAVSystemControllerCache : DeviceObject
@end

@implementation LaterSBAVSystemControllerCache

+ (id)sharedInstance
{
    return sharedObject("SBAVSystemControllerCache");
}

- (id)activeAudioRoute
{
    return hosts::hostObjectFor(hosts::callOwn<HostObject*>("SBAVSystemControllerCache", hosts::peerOf(self), _cmd));
}

@end

// Scenes.

@interface LaterUIApplication : DeviceObject
@end

@implementation LaterUIApplication

- (id)connectedScenes
{
    const id scene = hosts::hostObjectFor(hosts::device().home->windowScene());
    return scene == nil ? [NSSet set] : [NSSet setWithObject:scene];
}

@end

@interface LaterUIWindowScene : DeviceObject
@end

@implementation LaterUIWindowScene

- (id)screen
{
    return hosts::hostObjectFor(hosts::device().home->mainScreen());
}

@end

@interface LaterUIWindow : DeviceObject
@end

@implementation LaterUIWindow

- (void)setWindowScene:(id)scene
{
    hosts::peerAs<sim::Window>(self)->setScene(hosts::peerOf(scene));
}

@end
