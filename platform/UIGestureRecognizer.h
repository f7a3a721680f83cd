/// UIPanGestureRecognizer: drags of one finger.
#pragma once

#include "platform/UIView.h"

namespace panotra {

/// The platform's values.
enum class UIGestureRecognizerState : std::int64_t {
    Possible = 0,
    Began = 1,
    Changed = 2,
    Ended = 3,
    Cancelled = 4,
    Failed = 5,
};

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
