/// The application, the volume buttons and the voice assistant.
#include "platform/SpringBoard.h"

#include "platform/UIScreen.h"
#include "platform/simulated/Host.h"

namespace panotra {

UIApplication UIApplication::sharedApplication() noexcept
{
    return simulated::shared<UIApplication>("UIApplication");
}

std::int64_t UIApplication::activeInterfaceOrientation() const noexcept
{
    return simulated::send<std::int64_t>(*this, "activeInterfaceOrientation");
}

UIView UIApplication::statusBar() const noexcept
{
    return simulated::sendForObject<UIView>(*this, "statusBar");
}

UIWindowScene UIApplication::connectedWindowScene() const noexcept
{
    const auto scenes = simulated::sendForObject<NSObject>(*this, "connectedScenes");
    const auto* const set = simulated::objectOf<sim::Set>(scenes);
    if (set == nullptr)
        return nullptr;
    for (HostObject* const member : set->members) {
        const auto scene = retained<UIWindowScene>(member);
        if (simulated::sendForObject<NSObject>(scene, "screen") == UIScreen::mainScreen())
            return scene;
    }
    return nullptr;
}

VolumeControl UIApplication::volumeControl() const noexcept
{
    return simulated::sendForObject<VolumeControl>(*this, "volumeControl");
}

SpringBoard SpringBoard::sharedApplication() noexcept
{
    return simulated::shared<SpringBoard>("SpringBoard");
}

double SpringBoard::windowRotationDuration() const noexcept
{
    return simulated::send<double>(*this, "windowRotationDuration");
}

bool SpringBoard::isSpringBoardStatusBarHidden() const noexcept
{
    return simulated::send<bool>(*this, "isSpringBoardStatusBarHidden");
}

UIView SpringBoard::statusBarForEmbeddedDisplay() const noexcept
{
    return simulated::sendForObject<UIView>(*this, "statusBarForEmbeddedDisplay");
}

VolumeControl VolumeControl::sharedVolumeControl() noexcept
{
    return simulated::sharedBy<VolumeControl>("VolumeControl", "sharedVolumeControl");
}

VolumeControl VolumeControl::sharedInstance() noexcept
{
    return simulated::askClass<VolumeControl>("SBVolumeControl", "sharedInstance");
}

AXSpringBoardServer AXSpringBoardServer::server() noexcept
{
    return simulated::shared<AXSpringBoardServer>("AXSpringBoardServer");
}

bool AXSpringBoardServer::isSiriVisible() const noexcept
{
    return simulated::send<bool>(*this, "isSiriVisible");
}

void AXSpringBoardServer::openSiri() const noexcept
{
    simulated::send<void>(*this, "openSiri");
}

void AXSpringBoardServer::dismissSiri() const noexcept
{
    simulated::send<void>(*this, "dismissSiri");
}

SBAssistantController SBAssistantController::sharedInstance() noexcept
{
    return simulated::shared<SBAssistantController>("SBAssistantController");
}

UIWindow SBAssistantController::window() const noexcept
{
    return simulated::sendForObject<UIWindow>(*this, "window");
}

} // namespace panotra
