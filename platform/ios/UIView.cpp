/// Views: geometry, the tree and block animations.
#include "platform/UIView.h"

#include "platform/UIGestureRecognizer.h"
#include "platform/ios/Classes.h"
#include "platform/ios/KeptWork.h"
#include "platform/ios/Send.h"

#include <cmath>
#include <initializer_list>
#include <utility>

namespace panotra {

using namespace ios;

namespace {

/// Core Animation raises for geometry that is no finite number, and a level from outside may be anything.
bool isFinite(std::initializer_list<CGFloat> numbers)
{
    for (const CGFloat number : numbers) {
        if (!std::isfinite(number))
            return false;
    }
    return true;
}

} // namespace

UIView UIView::init() noexcept
{
    return create<UIView>(classes::UIView, selectors::init);
}

UIView UIView::initWithFrame(CGRect frame) noexcept
{
    return create<UIView>(classes::UIView, selectors::initWithFrame, frame);
}

CGRect UIView::frame() const noexcept
{
    return send(get(), selectors::frame);
}

void UIView::setFrame(CGRect frame) const noexcept
{
    if (isFinite({ frame.origin.x, frame.origin.y, frame.size.width, frame.size.height }))
        send(get(), selectors::setFrame, frame);
}

CGRect UIView::bounds() const noexcept
{
    return send(get(), selectors::bounds);
}

void UIView::layoutIfNeeded() const noexcept
{
    send(get(), selectors::layoutIfNeeded);
}

CGPoint UIView::center() const noexcept
{
    return send(get(), selectors::center);
}

void UIView::setCenter(CGPoint center) const noexcept
{
    if (isFinite({ center.x, center.y }))
        send(get(), selectors::setCenter, center);
}

void UIView::setTransform(CGAffineTransform transform) const noexcept
{
    if (isFinite({ transform.a, transform.b, transform.c, transform.d, transform.tx, transform.ty }))
        send(get(), selectors::setTransform, transform);
}

CGFloat UIView::alpha() const noexcept
{
    return send(get(), selectors::alpha);
}

void UIView::setAlpha(CGFloat alpha) const noexcept
{
    send(get(), selectors::setAlpha, alpha);
}

bool UIView::isHidden() const noexcept
{
    return send(get(), selectors::isHidden);
}

void UIView::setHidden(bool hidden) const noexcept
{
    send(get(), selectors::setHidden, hidden);
}

void UIView::setBackgroundColor(const UIColor& color) const noexcept
{
    send(get(), selectors::setBackgroundColor, color.get());
}

void UIView::setUserInteractionEnabled(bool enabled) const noexcept
{
    send(get(), selectors::setUserInteractionEnabled, enabled);
}

std::int64_t UIView::tag() const noexcept
{
    return send(get(), selectors::tag);
}

void UIView::setTag(std::int64_t tag) const noexcept
{
    send(get(), selectors::setTag, static_cast<NSInteger>(tag));
}

CALayer UIView::layer() const noexcept
{
    return ask<CALayer>(get(), selectors::layer);
}

UIView UIView::superview() const noexcept
{
    return ask<UIView>(get(), selectors::superview);
}

void UIView::addSubview(const UIView& view) const noexcept
{
    if (view)
        send(get(), selectors::addSubview, view.get());
}

void UIView::bringSubviewToFront(const UIView& view) const noexcept
{
    if (view)
        send(get(), selectors::bringSubviewToFront, view.get());
}

void UIView::removeFromSuperview() const noexcept
{
    send(get(), selectors::removeFromSuperview);
}

void UIView::addGestureRecognizer(const UIGestureRecognizer& recognizer) const noexcept
{
    if (recognizer)
        send(get(), selectors::addGestureRecognizer, recognizer.get());
}

void UIView::removeGestureRecognizer(const UIGestureRecognizer& recognizer) const noexcept
{
    if (recognizer)
        send(get(), selectors::removeGestureRecognizer, recognizer.get());
}

/// Where the platform cannot animate at all, or raises, everything is done at once: what waits for the end of an
/// animation must not wait for ever.
void UIView::animateWithDuration(double duration, double delay, std::uint64_t options, Block<void()> animations,
    Block<void(bool finished)> completion) noexcept
{
    const AnimationReference animation(new Animation(std::move(animations), std::move(completion)));
    using AnimationBlock = void (^)();
    using CompletionBlock = void (^)(BOOL);
    const AnimationBlock animationBlock = ^{ shielded([&] { animation->run(); }); };
    const CompletionBlock completionBlock = ^(BOOL finished) { shielded([&] { animation->end(finished != 0); }); };
    const bool isTaken = answers(classes::UIView, selectors::animateWithDuration) && shielded([&] {
        invoke<void, double, double, NSUInteger, AnimationBlock, CompletionBlock>(objc_msgSend,
            objectOf(classes::UIView.get()), selectors::animateWithDuration.get(), duration, delay,
            static_cast<NSUInteger>(options), animationBlock,
            animation->hasCompletion() ? completionBlock : CompletionBlock());
        return true;
    });
    shielded([&] { animation->run(); });
    if (!isTaken)
        shielded([&] { animation->end(true); });
}

} // namespace panotra
