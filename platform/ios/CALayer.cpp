/// What draws a view's edges.
#include "platform/CALayer.h"

#include "platform/ios/Send.h"
#include "platform/ios/private/QuartzCore.h"

namespace panotra {

using namespace ios;

void CALayer::setMasksToBounds(bool masksToBounds) const noexcept
{
    send(get(), selectors::setMasksToBounds, masksToBounds);
}

void CALayer::setCornerRadius(CGFloat radius) const noexcept
{
    send(get(), selectors::setCornerRadius, radius);
}

void CALayer::setBorderWidth(CGFloat width) const noexcept
{
    send(get(), selectors::setBorderWidth, width);
}

/// Layers take Core Graphics' own colours, which the colour object keeps alive; the layer retains what it takes.
void CALayer::setBorderColor(const UIColor& color) const noexcept
{
    send(get(), selectors::setBorderColor, send(color.get(), selectors::CGColor));
}

void CALayer::setContinuousCorners(bool continuousCorners) const noexcept
{
    send(get(), selectors::setContinuousCorners, continuousCorners);
}

void CALayer::removeAllAnimations() const noexcept
{
    send(get(), selectors::removeAllAnimations);
}

} // namespace panotra
