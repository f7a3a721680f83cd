/// UIPanGestureRecognizer: drags of one finger.
#pragma once

#include "facts/GestureStates.h"
#include "platform/UIView.h"

namespace panotra {

class UIGestureRecognizer : public NSObject {
public:
    using NSObject::NSObject;

    UIGestureRecognizerState state() const noexcept;
    /// The finger in `view`'s own points.
    CGPoint locationInView(const UIView& view) const noexcept;
};

class UIPanGestureRecognizer : public UIGestureRecognizer {
public:
    using UIGestureRecognizer::UIGestureRecognizer;

    /// Sends `action` with the recogniser to `target` at every change of state. The target is not kept alive.
    static UIPanGestureRecognizer initWithTarget(const NSObject& target, const char* action) noexcept;
};

} // namespace panotra
