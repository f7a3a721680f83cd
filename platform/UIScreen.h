/// UIScreen: the size of the screen, in pixels and in points.
#pragma once

#include "platform/UIView.h"

namespace panotra {

class UIScreen : public NSObject {
public:
    using NSObject::NSObject;

    static UIScreen mainScreen() noexcept;

    /// Points, as the current orientation sees them.
    CGRect bounds() const noexcept;
    /// Pixels a point.
    CGFloat scale() const noexcept;
    /// Private: the screen in pixels, upright. To be asked only after `respondsToSelector("_realDisplayBounds")`.
    CGRect realDisplayBounds() const noexcept;
    /// Private: the screen in points, upright; what older systems have instead.
    CGRect referenceBounds() const noexcept;
};

} // namespace panotra
