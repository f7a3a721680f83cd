/// UIView: geometry, the tree and block animations.
#pragma once

#include "platform/Block.h"
#include "platform/CALayer.h"
#include "platform/ClassDescription.h"
#include "platform/CoreGraphics.h"

namespace panotra {

class UIGestureRecognizer;

/// UIViewAnimationOptionAllowUserInteraction: views stay touchable while they move. The platform's value.
inline constexpr std::uint64_t UIViewAnimationOptionAllowUserInteraction = 2;

class UIView : public NSObject {
public:
    using NSObject::NSObject;

    /// A plain view of zero size.
    static UIView init() noexcept;
    static UIView initWithFrame(CGRect frame) noexcept;

    /// The bounding box of the transformed bounds about the centre, in the superview's points. Null: all zero.
    CGRect frame() const noexcept;
    /// Moves the centre to the middle of `frame` and fits the bounds to it through the inverse of the transform.
    void setFrame(CGRect frame) const noexcept;
    CGRect bounds() const noexcept;
    /// Gives what is inside its place now, where that was put off.
    void layoutIfNeeded() const noexcept;
    CGPoint center() const noexcept;
    void setCenter(CGPoint center) const noexcept;
    void setTransform(CGAffineTransform transform) const noexcept;

    CGFloat alpha() const noexcept;
    void setAlpha(CGFloat alpha) const noexcept;
    bool isHidden() const noexcept;
    void setHidden(bool hidden) const noexcept;
    void setBackgroundColor(const UIColor& color) const noexcept;
    void setUserInteractionEnabled(bool enabled) const noexcept;
    std::int64_t tag() const noexcept;
    void setTag(std::int64_t tag) const noexcept;
    CALayer layer() const noexcept;

    UIView superview() const noexcept;
    /// In front of the subviews that are there. The superview keeps the view alive. Null: nothing happens.
    void addSubview(const UIView& view) const noexcept;
    void bringSubviewToFront(const UIView& view) const noexcept;
    void removeFromSuperview() const noexcept;

    void addGestureRecognizer(const UIGestureRecognizer& recognizer) const noexcept;
    void removeGestureRecognizer(const UIGestureRecognizer& recognizer) const noexcept;

    /// Runs `animations` at once; what it sets is the property's value from then on and is shown moving there
    /// over `duration` seconds after `delay`. `completion` may be empty; it gets whether the animation ran to its
    /// end, and runs at once if nothing can animate. Handles captured by either keep their objects alive.
    static void animateWithDuration(double duration, double delay, std::uint64_t options, Block<void()> animations,
        Block<void(bool finished)> completion) noexcept;
};

} // namespace panotra
