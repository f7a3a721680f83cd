/// Resources of a package whose files are where their paths say.
#include "platform/NSBundle.h"

#include "platform/ios/Classes.h"
#include "platform/ios/Send.h"

namespace panotra {

using namespace ios;

NSBundle NSBundle::bundleWithPath(const char* path) noexcept
{
    if (path == nullptr)
        return nullptr;
    return ask<NSBundle>(classes::NSBundle, selectors::bundleWithPath, NSString::stringWithUTF8String(path).get());
}

} // namespace panotra
