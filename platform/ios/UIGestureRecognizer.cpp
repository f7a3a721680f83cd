/// Drags of one finger.
#include "platform/UIGestureRecognizer.h"

#include "platform/ios/Classes.h"
#include "platform/ios/Send.h"

namespace panotra {

using namespace ios;

UIGestureRecognizerState UIGestureRecognizer::state() const noexcept
{
    return static_cast<UIGestureRecognizerState>(send(get(), selectors::state));
}

CGPoint UIGestureRecognizer::locationInView(const UIView& view) const noexcept
{
    return send(get(), selectors::locationInView, view.get());
}

UIPanGestureRecognizer UIPanGestureRecognizer::initWithTarget(const NSObject& target, const char* action) noexcept
{
    return create<UIPanGestureRecognizer>(
        classes::UIPanGestureRecognizer, selectors::initWithTarget, target.get(), selectorNamed(action));
}

} // namespace panotra
