/// UIImage and UIImageView: pictures of the resource bundle.
#pragma once

#include "platform/NSBundle.h"
#include "platform/UIView.h"

namespace panotra {

/// UIImageRenderingModeAlwaysTemplate: only the shape counts, the colour is the view's tint. The platform's value.
inline constexpr std::int64_t UIImageRenderingModeAlwaysTemplate = 2;

class UIImage : public NSObject {
public:
    using NSObject::NSObject;

    /// Null where the bundle is null or has no such image.
    static UIImage imageNamed(const NSString& name, const NSBundle& bundle) noexcept;
    UIImage imageWithRenderingMode(std::int64_t mode) const noexcept;
};

/// The image as PNG data; null for a null image.
NSData UIImagePNGRepresentation(const UIImage& image) noexcept;

class UIImageView : public UIView {
public:
    using UIView::UIView;

    /// A null image gives an empty view.
    static UIImageView initWithImage(const UIImage& image) noexcept;
    void setTintColor(const UIColor& color) const noexcept;
};

} // namespace panotra
