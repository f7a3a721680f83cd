/// Preference domains.
#include "platform/NSUserDefaults.h"

#include "platform/ios/Classes.h"
#include "platform/ios/Send.h"

namespace panotra {

using namespace ios;

/// A null name would open the process's own domain.
NSUserDefaults NSUserDefaults::initWithSuiteName(const NSString& suite) noexcept
{
    if (!suite)
        return nullptr;
    return create<NSUserDefaults>(classes::NSUserDefaults, selectors::initWithSuiteName, suite.get());
}

void NSUserDefaults::synchronize() const noexcept
{
    send(get(), selectors::synchronize);
}

NSObject NSUserDefaults::objectForKey(const NSString& key) const noexcept
{
    return key ? ask<NSObject>(get(), selectors::objectForKey, key.get()) : nullptr;
}

/// A null key raises, and a null value would remove the key.
void NSUserDefaults::setObject(const NSNumber& value, const NSString& key) const noexcept
{
    if (value && key)
        send(get(), selectors::setObjectForKey, value.get(), key.get());
}

} // namespace panotra
