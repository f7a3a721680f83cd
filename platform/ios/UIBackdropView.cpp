/// The platform's private blur view.
#include "platform/UIBackdropView.h"

#include "platform/ios/Send.h"
#include "platform/ios/private/UIKit.h"

namespace panotra {

using namespace ios;

UIBackdropViewSettings UIBackdropViewSettings::settingsForStyle(
    std::int64_t style, std::int64_t graphicsQuality) noexcept
{
    return ask<UIBackdropViewSettings>(classes::UIBackdropViewSettings, selectors::settingsForStyle,
        static_cast<NSInteger>(style), static_cast<NSInteger>(graphicsQuality));
}

UIBackdropView UIBackdropView::initWithFrame(
    CGRect frame, bool autosizesToFitSuperview, const UIBackdropViewSettings& settings) noexcept
{
    return create<UIBackdropView>(
        classes::UIBackdropView, selectors::initBackdrop, frame, autosizesToFitSuperview, settings.get());
}

void UIBackdropView::setBlurRadius(CGFloat radius) const noexcept
{
    send(get(), selectors::setBlurRadius, radius);
}

void UIBackdropView::transitionToStyle(std::int64_t style) const noexcept
{
    send(get(), selectors::transitionToStyle, static_cast<NSInteger>(style));
}

UIView UIBackdropView::contentView() const noexcept
{
    return ask<UIView>(get(), selectors::contentView);
}

UIView UIBackdropView::effectView() const noexcept
{
    return ask<UIView>(get(), selectors::effectView);
}

} // namespace panotra
