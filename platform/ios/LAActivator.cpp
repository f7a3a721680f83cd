/// The gesture framework.
#include "platform/LAActivator.h"

#include "platform/NSString.h"
#include "platform/ios/Send.h"
#include "platform/ios/private/Activator.h"

namespace panotra {

using namespace ios;

LAActivator LAActivator::sharedInstance() noexcept
{
    return ask<LAActivator>(classes::LAActivator, selectors::sharedInstance);
}

void LAActivator::registerListener(const NSObject& listener, const char* name) const noexcept
{
    if (get() != nullptr)
        send(get(), selectors::registerListener, listener.get(), NSString::stringWithUTF8String(name).get());
}

void LAEvent::setHandled(bool handled) const noexcept
{
    send(get(), selectors::setHandled, handled);
}

} // namespace panotra
