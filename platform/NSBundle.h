/// NSBundle: the identity of the process and the mixer's resources.
#pragma once

#include "platform/NSString.h"

namespace panotra {

class NSBundle : public NSObject {
public:
    using NSObject::NSObject;

    static NSBundle mainBundle() noexcept;
    /// Null where there is no such folder.
    static NSBundle bundleWithPath(const char* path) noexcept;

    NSString bundleIdentifier() const noexcept;
};

} // namespace panotra
