/// NSUserDefaults: a handle on one preference domain, shared with other processes.
#pragma once

#include "platform/NSString.h"

namespace panotra {

class NSUserDefaults : public NSObject {
public:
    using NSObject::NSObject;

    /// A fresh handle on the domain called `suite`. Null for a null name.
    static NSUserDefaults initWithSuiteName(const NSString& suite) noexcept;

    /// Brings in what other processes have written. To be called before the first read.
    void synchronize() const noexcept;
    /// Null where the key is absent.
    NSObject objectForKey(const NSString& key) const noexcept;
    /// Persisted by the preferences system in its own time, at the latest when the handle goes.
    void setObject(const NSNumber& value, const NSString& key) const noexcept;
};

} // namespace panotra
