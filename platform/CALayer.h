/// CALayer: what draws a view's edges.
#pragma once

#include "platform/UIColor.h"

namespace panotra {

class CALayer : public NSObject {
public:
    using NSObject::NSObject;

    void setMasksToBounds(bool masksToBounds) const noexcept;
    void setCornerRadius(CGFloat radius) const noexcept;
    void setBorderWidth(CGFloat width) const noexcept;
    /// Null takes the border colour away.
    void setBorderColor(const UIColor& color) const noexcept;
    /// Private to the platform and newer than some systems: to be sent only after `respondsToSelector`.
    void setContinuousCorners(bool continuousCorners) const noexcept;
    /// Interrupts the view's running animations: the set values stay, completions run inside the call.
    void removeAllAnimations() const noexcept;
};

} // namespace panotra
