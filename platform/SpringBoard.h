/// The home-screen process: the application object and its private services, each looked up by name.
/// Where a class is missing its shared instance is null, and null answers zero.
#pragma once

#include "platform/NSString.h"
#include "platform/UIView.h"
#include "platform/UIWindow.h"

namespace panotra {

// Keys of the volume buttons: an integer and two booleans.
inline constexpr const char* volumeMode = "_mode";
inline constexpr const char* volumeUpButtonIsDown = "_volumeUpButtonIsDown";
inline constexpr const char* volumeDownButtonIsDown = "_volumeDownButtonIsDown";

/// The hardware volume buttons, whichever class stands for them.
class VolumeControl : public NSObject {
public:
    using NSObject::NSObject;

    /// Of the class `VolumeControl`; null where the process has none.
    static VolumeControl sharedVolumeControl() noexcept;
    /// Of the class `SBVolumeControl`; null where the process has none, and where it has no shared instance.
    static VolumeControl sharedInstance() noexcept;
    /// The buttons, by the oldest way that the process has.
    static VolumeControl current() noexcept;
};

/// The application as UIKit sees it, in any process.
class UIApplication : public NSObject {
public:
    using NSObject::NSObject;

    static UIApplication sharedApplication() noexcept;
    /// The same object by the name of whichever of its classes the process knows: this one, or the home screen's own.
    static UIApplication current() noexcept;
    /// Private. 1 portrait, 2 upside down, 3 and 4 the two landscapes; 0 unknown.
    std::int64_t activeInterfaceOrientation() const noexcept;
    /// Private.
    UIView statusBar() const noexcept;
    /// The first scene of the main screen; null where there is none, and where windows belong to no scenes.
    UIWindowScene connectedWindowScene() const noexcept;
    /// Private, of the home screen's own application. The volume buttons on systems that have no shared instance of
    /// them; null on all others.
    VolumeControl volumeControl() const noexcept;
};

/// The application of the home-screen process.
class SpringBoard : public UIApplication {
public:
    using UIApplication::UIApplication;

    static SpringBoard sharedApplication() noexcept;
    /// Seconds. Not on every system: to be asked only after `respondsToSelector`.
    double windowRotationDuration() const noexcept;
    /// Not on every system: to be asked only after `respondsToSelector`.
    bool isSpringBoardStatusBarHidden() const noexcept;
    /// The home screen's bar on systems that cannot be asked whether it is hidden; null on all others.
    UIView statusBarForEmbeddedDisplay() const noexcept;
};

/// The accessibility server of the home screen, which opens and closes the voice assistant.
class AXSpringBoardServer : public NSObject {
public:
    using NSObject::NSObject;

    static AXSpringBoardServer server() noexcept;
    bool isSiriVisible() const noexcept;
    void openSiri() const noexcept;
    void dismissSiri() const noexcept;
};

/// The voice assistant's own controller.
class SBAssistantController : public NSObject {
public:
    using NSObject::NSObject;

    static SBAssistantController sharedInstance() noexcept;
    UIWindow window() const noexcept;
};

inline UIApplication UIApplication::current() noexcept
{
    if (UIApplication application = sharedApplication())
        return application;
    return SpringBoard::sharedApplication();
}

inline VolumeControl VolumeControl::current() noexcept
{
    if (VolumeControl buttons = sharedVolumeControl())
        return buttons;
    if (VolumeControl buttons = sharedInstance())
        return buttons;
    return UIApplication::current().volumeControl();
}

} // namespace panotra
