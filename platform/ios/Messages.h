/// Every message that is sent here to what is the platform's own: the class, the method, its type, and which systems
/// have it.
///
/// The rows are made of the very names and types with which the messages are sent (Classes.h, Selectors.h, private/).
/// Of the public interface only what later systems brought is among them; methods of other people's libraries are not.
#pragma once

#include "platform/MethodEntry.h"
#include "platform/ios/Names.h"
#include "platform/ios/Scenes.h"
#include "platform/ios/private/AVSystemController.h"
#include "platform/ios/private/AccessibilityUtilities.h"
#include "platform/ios/private/QuartzCore.h"
#include "platform/ios/private/SharedInstance.h"
#include "platform/ios/private/SpringBoard.h"
#include "platform/ios/private/UIKit.h"

#include <array>

namespace panotra::ios {

struct MessageRow {
    const char* className;
    bool isToTheClass; ///< the method is one of the class itself
    const AnySelector* selector;
    const char* type; ///< the runtime's type code
    int since; ///< the first system that has it, counted from iOS 9; earlier only for what no served system has
    int until; ///< the last one, up to iOS 16

    const char* method() const noexcept { return selector->name(); }
};

template <typename Result, typename... Parameters>
constexpr MessageRow message(
    const char* className, const Selector<Result(Parameters...)>& selector, int since, int until)
{
    return { className, false, &selector, SignatureEncoding<Result, Parameters...>::value.data(), since, until };
}

template <typename Signature>
constexpr MessageRow messageToClass(const char* className, const Selector<Signature>& selector, int since, int until)
{
    MessageRow row = message(className, selector, since, until);
    row.isToTheClass = true;
    return row;
}

// An answer that is not used counts as none, whatever the method answers.
inline constexpr std::array messageRows {
    messageToClass("AVSystemController", selectors::sharedAVSystemController, 9, 16),
    message("AVSystemController", selectors::setVolumeTo, 9, 16),
    message("AVSystemController", selectors::getVolume, 9, 16),
    message("AVSystemController", selectors::attributeForKey, 9, 16),
    messageToClass("SBAVSystemControllerCache", selectors::sharedInstance, 13, 16),
    message("SBAVSystemControllerCache", selectors::activeAudioRoute, 13, 16),
    messageToClass("VolumeControl", selectors::sharedVolumeControl, 9, 12),
    messageToClass("SBVolumeControl", selectors::sharedInstance, 13, 15),
    message("SpringBoard", selectors::volumeControl, 16, 16),
    message("SpringBoard", selectors::windowRotationDuration, 9, 14),
    message("SpringBoard", selectors::isSpringBoardStatusBarHidden, 9, 15),
    message("SpringBoard", selectors::statusBarForEmbeddedDisplay, 16, 16),
    message("UIApplication", selectors::activeInterfaceOrientation, 9, 16),
    message("UIApplication", selectors::statusBar, 9, 16),
    message("UIApplication", selectors::connectedScenes, 13, 16),
    message("UIWindowScene", selectors::sceneScreen, 13, 16),
    message("UIWindow", selectors::setWindowScene, 13, 16),
    messageToClass("SBAssistantController", selectors::sharedInstance, 9, 16),
    message("SBAssistantController", selectors::window, 9, 16),
    messageToClass("AXSpringBoardServer", selectors::server, 9, 16),
    message("AXSpringBoardServer", selectors::isSiriVisible, 9, 16),
    message("AXSpringBoardServer", selectors::openSiri, 9, 12),
    message("AXSpringBoardServer", selectors::dismissSiri, 9, 16),
    message("SBUISound", selectors::soundType, 9, 16),
    messageToClass("_UIBackdropViewSettings", selectors::settingsForStyle, 9, 16),
    message("_UIBackdropView", selectors::initBackdrop, 9, 16),
    message("_UIBackdropView", selectors::setBlurRadius, 9, 16),
    message("_UIBackdropView", selectors::transitionToStyle, 9, 16),
    message("_UIBackdropView", selectors::contentView, 9, 16),
    message("_UIBackdropView", selectors::effectView, 9, 16),
    message("UIScreen", selectors::realDisplayBounds, 7, 8), // before every system that is served
    message("UIScreen", selectors::referenceBounds, 9, 16),
    messageToClass("UIImage", selectors::imageNamedInBundle, 9, 16),
    message("CALayer", selectors::setContinuousCorners, 11, 16),
};

} // namespace panotra::ios
