/// Standing in front of a method for a while: each call is looked at and handed on as it came.
///
/// It lets go by putting back what it found. Where somebody else has come in front meanwhile, putting back would cut
/// them off: then it stays where it is, looks at nothing and hands on.
#pragma once

#include "doctor/HostMessages.h"
#include "platform/Runtime.h"

#include <atomic>

namespace panotra::doctor {

/// `look` gets the method's arguments, on the thread of the call, as long as calls are looked at.
template <auto look> class PassingCall;

template <typename... Arguments, void (*look)(Arguments...)> class PassingCall<look> {
public:
    /// From now on calls are looked at. False where the class has no such method of its own. Main thread, like `end`.
    static bool begin(const char* className, const char* method) noexcept
    {
        hostMethod = ownMethod(className, method);
        if (hostMethod == nullptr)
            return false;
        isLookedAt = true;
        if (!isInFront) {
            before = implementationOf(hostMethod);
            before = setImplementation(hostMethod, reinterpret_cast<IMP>(&enter));
            isInFront = true;
        }
        return true;
    }

    static void end() noexcept
    {
        isLookedAt = false;
        if (isInFront && implementationOf(hostMethod) == reinterpret_cast<IMP>(&enter)) {
            setImplementation(hostMethod, before);
            isInFront = false;
        }
    }

private:
    static void enter(id self, SEL selector, Arguments... arguments)
    {
        if (isLookedAt)
            look(arguments...);
        reinterpret_cast<void (*)(id, SEL, Arguments...)>(before.load())(self, selector, arguments...);
    }

    static inline constinit OwnMethod* hostMethod = nullptr;
    static inline constinit bool isInFront = false;
    static inline constinit std::atomic<bool> isLookedAt = false;
    /// Known before the first call comes.
    static inline constinit std::atomic<IMP> before = nullptr;
};

} // namespace panotra::doctor
