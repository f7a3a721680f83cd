/// The gesture framework.
#include "platform/LAActivator.h"

#include "platform/simulated/Host.h"

namespace panotra {

LAActivator LAActivator::sharedInstance() noexcept
{
    return simulated::shared<LAActivator>("LAActivator");
}

void LAActivator::registerListener(const NSObject& listener, const char* name) const noexcept
{
    if (simulated::objectOf(*this) == nullptr || name == nullptr)
        return;
    simulated::send<void>(*this, "registerListener:forName:", simulated::objectOf(listener),
        static_cast<HostObject*>(sim::autoreleasedString(name)));
}

void LAEvent::setHandled(bool handled) const noexcept
{
    simulated::send<void>(*this, "setHandled:", handled);
}

} // namespace panotra
