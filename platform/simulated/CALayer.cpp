/// Layers, which live in their views.
#include "platform/CALayer.h"

#include "platform/simulated/Host.h"
#include "simulator/device/RunLoop.h"
#include "simulator/device/View.h"

namespace panotra {

namespace {

/// Null for a null layer and for one whose view is gone.
sim::View* viewOf(const CALayer& layer)
{
    auto* const object = simulated::objectOf<sim::LayerObject>(layer);
    return object == nullptr ? nullptr : object->view;
}

} // namespace

void CALayer::setMasksToBounds(bool masksToBounds) const noexcept
{
    if (sim::View* const view = viewOf(*this))
        view->layer.masksToBounds = masksToBounds;
}

void CALayer::setCornerRadius(CGFloat radius) const noexcept
{
    if (sim::View* const view = viewOf(*this))
        view->layer.cornerRadius = radius;
}

void CALayer::setBorderWidth(CGFloat width) const noexcept
{
    if (sim::View* const view = viewOf(*this))
        view->layer.borderWidth = width;
}

void CALayer::setBorderColor(const UIColor& color) const noexcept
{
    const auto* const value = simulated::objectOf<sim::Color>(color);
    if (sim::View* const view = viewOf(*this))
        view->layer.borderColor = value == nullptr ? std::nullopt : std::optional(value->rgba);
}

void CALayer::setContinuousCorners(bool continuousCorners) const noexcept
{
    simulated::send<void>(*this, "setContinuousCorners:", continuousCorners);
}

void CALayer::removeAllAnimations() const noexcept
{
    if (sim::View* const view = viewOf(*this))
        sim::Device::current()->runLoop->removeAllAnimations(*view);
}

} // namespace panotra
