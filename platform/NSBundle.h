/// NSBundle: the identity of the process and the mixer's resources.
#pragma once

#include "platform/NSString.h"

namespace panotra {

class NSBundle : public NSObject {
public:
    using NSObject::NSObject;

    static NSBundle mainBundle() noexcept;
    /// The folder is one of the mixer's package, its path that in a package whose files lie below the root; a host may
    /// keep them all below another folder. Null where there is no such folder.
    static NSBundle bundleWithPath(const char* path) noexcept;

    NSString bundleIdentifier() const noexcept;
};

} // namespace panotra
