/// Colours.
#include "platform/UIColor.h"

#include "platform/simulated/Host.h"
#include "simulator/device/View.h"

namespace panotra {

UIColor UIColor::colorWithRed(CGFloat red, CGFloat green, CGFloat blue, CGFloat alpha) noexcept
{
    return simulated::create<UIColor, sim::Color>("UIColor", sim::Rgba { red, green, blue, alpha });
}

UIColor UIColor::blackColor() noexcept
{
    return colorWithRed(0, 0, 0, 1);
}

UIColor UIColor::whiteColor() noexcept
{
    return colorWithRed(1, 1, 1, 1);
}

} // namespace panotra
