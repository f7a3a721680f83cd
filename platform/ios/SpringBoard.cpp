/// The home-screen process: its application object and private services.
#include "platform/SpringBoard.h"

#include "platform/UIScreen.h"
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
    // Performed, not sent: whoever hooks the perform sees it. The answer is a number in an object's place.
    if (!answers(get(), selectors::activeInterfaceOrientation))
        return 0;
    return reinterpret_cast<NSInteger>(send(get(), selectors::perform, selectors::activeInterfaceOrientation.get()));
}

UIView UIApplication::statusBar() const noexcept
{
    return ask<UIView>(get(), selectors::statusBar);
}

UIWindowScene UIApplication::connectedWindowScene() const noexcept
{
    const auto scenes = ask<NSObject>(ask<NSObject>(get(), selectors::connectedScenes).get(), selectors::allObjects);
    const NSUInteger count = send(scenes.get(), selectors::count);
    for (NSUInteger index = 0; index < count; ++index) {
        const auto scene = ask<UIWindowScene>(scenes.get(), selectors::objectAtIndex, index);
        if (isKindOf(scene.get(), classes::UIWindowScene)
            && ask<UIScreen>(scene.get(), selectors::sceneScreen) == UIScreen::mainScreen())
            return scene;
    }
    return nullptr;
}

VolumeControl UIApplication::volumeControl() const noexcept
{
    return ask<VolumeControl>(get(), selectors::volumeControl);
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

UIView SpringBoard::statusBarForEmbeddedDisplay() const noexcept
{
    return ask<UIView>(get(), selectors::statusBarForEmbeddedDisplay);
}

VolumeControl VolumeControl::sharedVolumeControl() noexcept
{
    return ask<VolumeControl>(classes::VolumeControl, selectors::sharedVolumeControl);
}

VolumeControl VolumeControl::sharedInstance() noexcept
{
    return ask<VolumeControl>(classes::SBVolumeControl, selectors::sharedInstance);
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
