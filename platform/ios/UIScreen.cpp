/// The size of the screen.
#include "platform/UIScreen.h"

#include "platform/ios/Classes.h"
#include "platform/ios/Send.h"
#include "platform/ios/private/UIKit.h"

namespace panotra {

using namespace ios;

UIScreen UIScreen::mainScreen() noexcept
{
    return ask<UIScreen>(classes::UIScreen, selectors::mainScreen);
}

CGRect UIScreen::bounds() const noexcept
{
    return send(get(), selectors::bounds);
}

CGFloat UIScreen::scale() const noexcept
{
    return send(get(), selectors::scale);
}

CGRect UIScreen::realDisplayBounds() const noexcept
{
    return send(get(), selectors::realDisplayBounds);
}

CGRect UIScreen::referenceBounds() const noexcept
{
    return send(get(), selectors::referenceBounds);
}

} // namespace panotra
