/// The classes of other people's libraries.
#include "tests/hosts/classes/SpringBoard.h"

#include "simulator/device/HomeScreen.h"
#include "simulator/device/SharedObjects.h"
#include "tests/hosts/DeviceCalls.h"
#include "tests/hosts/Values.h"

using namespace panotra;

// Other people's indicator overlays.

@implementation MeliorWindow

+ (id)sharedInstance
{
    return sharedObject("MeliorWindow");
}

@end

@implementation ABVolumeHUDVisibilityManager

- (void)hideImmediatelyIfPossible
{
    hosts::callOwn<void>("ABVolumeHUDVisibilityManager", hosts::peerOf(self), _cmd);
}

@end

@implementation ABVolumeHUDManager

+ (id)sharedManager
{
    return sharedObject("ABVolumeHUDManager");
}

- (id)visibilityManager
{
    return hosts::hostObjectFor(hosts::peerAs<sim::VolumeHUDManager>(self)->visibilityManager);
}

- (id)targetView
{
    return hosts::hostObjectFor(hosts::peerAs<sim::VolumeHUDManager>(self)->targetView);
}

@end

// The gesture framework.

@implementation LAActivator

+ (id)sharedInstance
{
    return sharedObject("LAActivator");
}

- (void)registerListener:(id)listener forName:(NSString*)name
{
    if (const auto text = hosts::textOf(name))
        hosts::device().home->registerListener(hosts::peerOf(listener), *text);
}

@end

@implementation LAEvent

- (void)setHandled:(BOOL)handled
{
    hosts::callOwn<void>("LAEvent", hosts::peerOf(self), _cmd, handled != NO);
}

@end
