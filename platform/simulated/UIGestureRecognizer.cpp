/// Pan recognisers.
#include "platform/UIGestureRecognizer.h"

#include "platform/simulated/Host.h"
#include "simulator/device/View.h"

namespace panotra {

UIGestureRecognizerState UIGestureRecognizer::state() const noexcept
{
    const auto* const recognizer = simulated::objectOf<sim::PanRecognizer>(*this);
    return static_cast<UIGestureRecognizerState>(recognizer == nullptr ? 0 : recognizer->state);
}

CGPoint UIGestureRecognizer::locationInView(const UIView& view) const noexcept
{
    const auto* const recognizer = simulated::objectOf<sim::PanRecognizer>(*this);
    if (recognizer == nullptr)
        return {};
    return simulated::fromDevice(recognizer->locationIn(simulated::objectOf<sim::View>(view)));
}

UIPanGestureRecognizer UIPanGestureRecognizer::initWithTarget(const NSObject& target, const char* action) noexcept
{
    const HostSelector* const selector = action == nullptr ? nullptr : sim::selector(action);
    return simulated::create<UIPanGestureRecognizer, sim::PanRecognizer>(
        "UIPanGestureRecognizer", simulated::objectOf(target), selector);
}

} // namespace panotra
