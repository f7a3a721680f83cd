/// Two other indicator overlays that may share the process, driven by class name if they are there.
#pragma once

#include "platform/UIView.h"

namespace panotra {

class MeliorWindow : public UIView {
public:
    using UIView::UIView;

    /// Null without the class.
    static MeliorWindow sharedInstance() noexcept;
    /// The first of its subviews: the overlay itself.
    UIView firstSubview() const noexcept;
};

class ABVolumeHUDVisibilityManager : public NSObject {
public:
    using NSObject::NSObject;

    void hideImmediatelyIfPossible() const noexcept;
};

class ABVolumeHUDManager : public NSObject {
public:
    using NSObject::NSObject;

    /// Null without the class.
    static ABVolumeHUDManager sharedManager() noexcept;
    ABVolumeHUDVisibilityManager visibilityManager() const noexcept;
    UIView targetView() const noexcept;
};

} // namespace panotra
