/// The identity of the process. The mixer's resources are opened in rootful/ and rootless/, one of which is linked.
#include "platform/NSBundle.h"

#include "platform/ios/Classes.h"
#include "platform/ios/Send.h"

namespace panotra {

using namespace ios;

NSBundle NSBundle::mainBundle() noexcept
{
    return ask<NSBundle>(classes::NSBundle, selectors::mainBundle);
}

NSString NSBundle::bundleIdentifier() const noexcept
{
    return NSString::checked(ask<NSObject>(get(), selectors::bundleIdentifier));
}

} // namespace panotra
