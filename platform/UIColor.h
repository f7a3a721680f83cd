/// UIColor. Components are red, green, blue, alpha from 0 to 1.
#pragma once

#include "platform/CoreGraphics.h"
#include "platform/NSObject.h"

namespace panotra {

class UIColor : public NSObject {
public:
    using NSObject::NSObject;

    static UIColor colorWithRed(CGFloat red, CGFloat green, CGFloat blue, CGFloat alpha) noexcept;
    static UIColor blackColor() noexcept;
    static UIColor whiteColor() noexcept;
};

} // namespace panotra
