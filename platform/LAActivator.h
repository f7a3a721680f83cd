/// LAActivator: the gesture framework, if the user has it installed.
#pragma once

#include "platform/NSObject.h"

namespace panotra {

class LAActivator : public NSObject {
public:
    using NSObject::NSObject;

    /// Null without the framework.
    static LAActivator sharedInstance() noexcept;
    void registerListener(const NSObject& listener, const char* name) const noexcept;
};

/// A gesture on its way to a listener.
class LAEvent : public NSObject {
public:
    using NSObject::NSObject;

    /// A handled event goes no further.
    void setHandled(bool handled) const noexcept;
};

} // namespace panotra
