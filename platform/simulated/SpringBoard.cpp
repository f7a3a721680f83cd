/// The application, the volume buttons and the voice assistant.
#include "platform/SpringBoard.h"

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

VolumeControl VolumeControl::sharedVolumeControl() noexcept
{
    return simulated::shared<VolumeControl>("VolumeControl");
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
