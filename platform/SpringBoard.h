/// The home-screen process: the application object and its private services, each looked up by name.
/// Where a class is missing its shared instance is null, and null answers zero.
#pragma once

#include "platform/NSString.h"
#include "platform/UIView.h"
#include "platform/UIWindow.h"

namespace panotra {

/// The application as UIKit sees it, in any process.
class UIApplication : public NSObject {
public:
    using NSObject::NSObject;

    static UIApplication sharedApplication() noexcept;
    /// Private. 1 portrait, 2 upside down, 3 and 4 the two landscapes; 0 unknown.
    std::int64_t activeInterfaceOrientation() const noexcept;
    /// Private.
    UIView statusBar() const noexcept;
};

/// The application of the home-screen process.
class SpringBoard : public UIApplication {
public:
    using UIApplication::UIApplication;

    static SpringBoard sharedApplication() noexcept;
    /// Seconds.
    double windowRotationDuration() const noexcept;
    bool isSpringBoardStatusBarHidden() const noexcept;
};

/// The hardware volume buttons. Read through the keys `_mode` (integer), `_volumeUpButtonIsDown` and
/// `_volumeDownButtonIsDown` (booleans).
class VolumeControl : public NSObject {
public:
    using NSObject::NSObject;

    static VolumeControl sharedVolumeControl() noexcept;
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

} // namespace panotra
