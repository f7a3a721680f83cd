/// Classes by name, counting and pools.
#include "platform/ios/Firewall.h"
#include "platform/ios/Names.h"
#include "platform/ios/ObjectiveC.h"

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

void retain(id object) noexcept
{
    objc_retain(toRuntime(object));
}

/// The last count runs the object's dealloc.
void release(id object) noexcept
{
    ios::shielded([=] { objc_release(toRuntime(object)); });
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
    ios::shielded([=] { ::objc_autoreleasePoolPop(pool); });
}

} // namespace panotra
