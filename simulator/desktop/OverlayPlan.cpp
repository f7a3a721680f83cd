/// Proportions.
#include "simulator/desktop/OverlayPlan.h"

#include "simulator/device/ClassTable.h"
#include "simulator/device/HomeScreen.h"
#include "simulator/device/View.h"

#include <algorithm>
#include <cmath>

namespace panotra::sim {

View* viewToShow(const Device& device)
{
    const auto* const window = dynamic_cast<const Window*>(device.home->window());
    if (window == nullptr || !window->shown)
        return nullptr;
    auto* const container = dynamic_cast<View*>(device.classes->heldInField("_containerView"));
    return container != nullptr && container->isInside(*window) ? container : nullptr;
}

Point PhoneOnDesktop::onPhone(double pointerX, double pointerY) const
{
    return { (pointerX - x) / unitsPerPoint, (pointerY - y) / unitsPerPoint };
}

double unitsPerPointOn(const render::PixelRect& monitor)
{
    constexpr double heightOfOnePoint = 900; // of a monitor on which a point is a unit
    constexpr double stepsAUnit = 4;
    constexpr double most = 4;
    const double factor = std::round(monitor.height / heightOfOnePoint * stepsAUnit) / stepsAUnit;
    return std::clamp(factor, 1.0, most);
}

PhoneOnDesktop placePhone(const render::PixelRect& usable, const Rect& mixer)
{
    const double units = unitsPerPointOn(usable);
    constexpr double topPart = 3;
    const bool isNearTop = mixer.middle().y < overlayScreen.height / topPart;
    const double left = std::round((usable.width - overlayScreen.width * units) / 2);
    const double top = isNearTop ? 0 : std::round((usable.height - overlayScreen.height * units) / 2);
    return { usable.x + left, usable.y + top, units };
}

} // namespace panotra::sim
