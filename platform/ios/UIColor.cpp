/// Colours.
#include "platform/UIColor.h"

#include "platform/ios/Classes.h"
#include "platform/ios/Send.h"

namespace panotra {

using namespace ios;

UIColor UIColor::colorWithRed(CGFloat red, CGFloat green, CGFloat blue, CGFloat alpha) noexcept
{
    return ask<UIColor>(classes::UIColor, selectors::colorWithRed, red, green, blue, alpha);
}

UIColor UIColor::blackColor() noexcept
{
    return ask<UIColor>(classes::UIColor, selectors::blackColor);
}

UIColor UIColor::whiteColor() noexcept
{
    return ask<UIColor>(classes::UIColor, selectors::whiteColor);
}

} // namespace panotra
