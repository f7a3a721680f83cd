/// Two other people's indicator overlays.
#include "platform/VolumeOverlays.h"

#include "platform/ios/Send.h"
#include "platform/ios/private/VolumeOverlays.h"

namespace panotra {

using namespace ios;

MeliorWindow MeliorWindow::sharedInstance() noexcept
{
    return ask<MeliorWindow>(classes::MeliorWindow, selectors::sharedInstance);
}

UIView MeliorWindow::firstSubview() const noexcept
{
    return ask<UIView>(send(get(), selectors::subviews), selectors::firstObject);
}

ABVolumeHUDManager ABVolumeHUDManager::sharedManager() noexcept
{
    return ask<ABVolumeHUDManager>(classes::ABVolumeHUDManager, selectors::sharedManager);
}

ABVolumeHUDVisibilityManager ABVolumeHUDManager::visibilityManager() const noexcept
{
    return ask<ABVolumeHUDVisibilityManager>(get(), selectors::visibilityManager);
}

UIView ABVolumeHUDManager::targetView() const noexcept
{
    return ask<UIView>(get(), selectors::targetView);
}

void ABVolumeHUDVisibilityManager::hideImmediatelyIfPossible() const noexcept
{
    send(get(), selectors::hideImmediatelyIfPossible);
}

} // namespace panotra
