/// The home-screen process: its application object and private services.
#include "platform/SpringBoard.h"

#include "platform/ios/Classes.h"
#include "platform/ios/Send.h"
#include "platform/ios/private/AccessibilityUtilities.h"
#include "platform/ios/private/SpringBoard.h"
#include "platform/ios/private/UIKit.h"

namespace panotra {

using namespace ios;

UIApplication UIApplication::sharedApplication() noexcept
{
    return ask<UIApplication>(classes::UIApplication, selectors::sharedApplication);
}

std::int64_t UIApplication::activeInterfaceOrientation() const noexcept
{
    return send(get(), selectors::activeInterfaceOrientation);
}

UIView UIApplication::statusBar() const noexcept
{
    return ask<UIView>(get(), selectors::statusBar);
}

SpringBoard SpringBoard::sharedApplication() noexcept
{
    return ask<SpringBoard>(classes::SpringBoard, selectors::sharedApplication);
}

double SpringBoard::windowRotationDuration() const noexcept
{
    return send(get(), selectors::windowRotationDuration);
}

bool SpringBoard::isSpringBoardStatusBarHidden() const noexcept
{
    return send(get(), selectors::isSpringBoardStatusBarHidden);
}

VolumeControl VolumeControl::sharedVolumeControl() noexcept
{
    return ask<VolumeControl>(classes::VolumeControl, selectors::sharedVolumeControl);
}

AXSpringBoardServer AXSpringBoardServer::server() noexcept
{
    return ask<AXSpringBoardServer>(classes::AXSpringBoardServer, selectors::server);
}

bool AXSpringBoardServer::isSiriVisible() const noexcept
{
    return send(get(), selectors::isSiriVisible);
}

void AXSpringBoardServer::openSiri() const noexcept
{
    send(get(), selectors::openSiri);
}

void AXSpringBoardServer::dismissSiri() const noexcept
{
    send(get(), selectors::dismissSiri);
}

SBAssistantController SBAssistantController::sharedInstance() noexcept
{
    return ask<SBAssistantController>(classes::SBAssistantController, selectors::sharedInstance);
}

UIWindow SBAssistantController::window() const noexcept
{
    return ask<UIWindow>(get(), selectors::window);
}

} // namespace panotra
