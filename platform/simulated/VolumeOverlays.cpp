/// Two other indicator overlays.
#include "platform/VolumeOverlays.h"

#include "platform/simulated/Host.h"
#include "simulator/device/View.h"

namespace panotra {

MeliorWindow MeliorWindow::sharedInstance() noexcept
{
    return simulated::shared<MeliorWindow>("MeliorWindow");
}

UIView MeliorWindow::firstSubview() const noexcept
{
    const auto* const window = simulated::objectOf<sim::View>(*this);
    return window == nullptr || window->subviews.empty() ? UIView() : retained<UIView>(window->subviews.front());
}

void ABVolumeHUDVisibilityManager::hideImmediatelyIfPossible() const noexcept
{
    simulated::send<void>(*this, "hideImmediatelyIfPossible");
}

ABVolumeHUDManager ABVolumeHUDManager::sharedManager() noexcept
{
    return simulated::shared<ABVolumeHUDManager>("ABVolumeHUDManager");
}

ABVolumeHUDVisibilityManager ABVolumeHUDManager::visibilityManager() const noexcept
{
    return simulated::sendForObject<ABVolumeHUDVisibilityManager>(*this, "visibilityManager");
}

UIView ABVolumeHUDManager::targetView() const noexcept
{
    return simulated::sendForObject<UIView>(*this, "targetView");
}

} // namespace panotra
