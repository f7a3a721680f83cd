/// The screen.
#include "platform/UIScreen.h"

#include "platform/simulated/Host.h"

namespace panotra {

UIScreen UIScreen::mainScreen() noexcept
{
    sim::Device* const device = sim::Device::current();
    return device == nullptr ? UIScreen() : retained<UIScreen>(device->home->mainScreen());
}

CGRect UIScreen::bounds() const noexcept
{
    return simulated::fromDevice(simulated::send<sim::Rect>(*this, "bounds"));
}

CGFloat UIScreen::scale() const noexcept
{
    return simulated::send<double>(*this, "scale");
}

CGRect UIScreen::realDisplayBounds() const noexcept
{
    return simulated::fromDevice(simulated::send<sim::Rect>(*this, "_realDisplayBounds"));
}

CGRect UIScreen::referenceBounds() const noexcept
{
    return simulated::fromDevice(simulated::send<sim::Rect>(*this, "_referenceBounds"));
}

} // namespace panotra
