/// Classes by name, method replacement, counting and pools.
#include "platform/ios/Names.h"
#include "platform/ios/ObjectiveC.h"

#include <substrate.h>

namespace panotra {

using ios::fromRuntime;
using ios::toRuntime;

SEL ios::selectorNamed(const char* name) noexcept
{
    return fromRuntime(sel_registerName(name));
}

Class objc_getClass(const char* name) noexcept
{
    return name != nullptr ? fromRuntime(::objc_getClass(name)) : nullptr;
}

/// The hooking framework aborts the process over a missing class and complains of a missing method, so it is not
/// asked. The previous implementation is stored beforehand: another thread may call the replacement before the
/// framework returns. What the framework stores in the end, which may be a trampoline of its own, stands.
void MSHookMessageEx(Class hostClass, const char* selector, IMP replacement, IMP* previous) noexcept
{
    if (hostClass == nullptr || selector == nullptr)
        return;
    ::SEL const name = sel_registerName(selector);
    if (class_getInstanceMethod(toRuntime(hostClass), name) == nullptr)
        return;
    if (previous != nullptr)
        *previous = class_getMethodImplementation(toRuntime(hostClass), name);
    ::MSHookMessageEx(toRuntime(hostClass), name, replacement, previous);
}

void retain(id object) noexcept
{
    objc_retain(toRuntime(object));
}

void release(id object) noexcept
{
    objc_release(toRuntime(object));
}

id autorelease(id object) noexcept
{
    return fromRuntime(objc_autorelease(toRuntime(object)));
}

void* objc_autoreleasePoolPush() noexcept
{
    return ::objc_autoreleasePoolPush();
}

void objc_autoreleasePoolPop(void* pool) noexcept
{
    ::objc_autoreleasePoolPop(pool);
}

} // namespace panotra
