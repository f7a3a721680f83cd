/// UIBackdropView: the platform's private blur view, `_UIBackdropView`, and its settings.
///
/// Style codes are the private `_UIBackdropViewSettings` family's: 2 and -2 plain blurs, 2010 and 2020 to 2060
/// light and dark materials, 1001 a dark one. They are passed as they stand.
#pragma once

#include "platform/UIView.h"

namespace panotra {

class UIBackdropViewSettings : public NSObject {
public:
    using NSObject::NSObject;

    /// `graphicsQuality`: 100 is the best the device offers.
    static UIBackdropViewSettings settingsForStyle(std::int64_t style, std::int64_t graphicsQuality) noexcept;
};

class UIBackdropView : public UIView {
public:
    using UIView::UIView;

    static UIBackdropView initWithFrame(
        CGRect frame, bool autosizesToFitSuperview, const UIBackdropViewSettings& settings) noexcept;

    /// Points; may be animated.
    void setBlurRadius(CGFloat radius) const noexcept;
    void transitionToStyle(std::int64_t style) const noexcept;
    /// Holds what lies on the material; always as large as the backdrop.
    UIView contentView() const noexcept;
    /// Draws the material itself: at alpha 0 there is no blur.
    UIView effectView() const noexcept;
};

} // namespace panotra
