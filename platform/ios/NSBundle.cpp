/// The identity of the process and the mixer's resources.
#include "platform/NSBundle.h"

#include "platform/ios/Classes.h"
#include "platform/ios/Send.h"

namespace panotra {

using namespace ios;

NSBundle NSBundle::mainBundle() noexcept
{
    return ask<NSBundle>(classes::NSBundle, selectors::mainBundle);
}

NSBundle NSBundle::bundleWithPath(const char* path) noexcept
{
    if (path == nullptr)
        return nullptr;
    return ask<NSBundle>(classes::NSBundle, selectors::bundleWithPath, NSString::stringWithUTF8String(path).get());
}

NSString NSBundle::bundleIdentifier() const noexcept
{
    return NSString::checked(ask<NSObject>(get(), selectors::bundleIdentifier));
}

} // namespace panotra
