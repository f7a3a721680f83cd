/// Classes by name, method replacement and counting.
#include "platform/Runtime.h"

#include "simulator/device/Services.h"

namespace panotra {

Class objc_getClass(const char* name) noexcept
{
    sim::Device* const device = sim::Device::current();
    return device == nullptr || name == nullptr ? nullptr : device->classes->find(name);
}

void MSHookMessageEx(Class hostClass, const char* selector, IMP replacement, IMP* previous) noexcept
{
    sim::Device* const device = sim::Device::current();
    if (device != nullptr && hostClass != nullptr && selector != nullptr)
        device->classes->replace(*hostClass, sim::selector(selector), replacement, previous);
}

void retain(id object) noexcept
{
    sim::retain(object);
}

void release(id object) noexcept
{
    sim::release(object);
}

id autorelease(id object) noexcept
{
    sim::Device* const device = sim::Device::current();
    return device == nullptr ? nullptr : device->classes->autorelease(object);
}

// The device has one pool, which it empties itself after every piece of work.

void* objc_autoreleasePoolPush() noexcept
{
    return nullptr;
}

void objc_autoreleasePoolPop(void*) noexcept { }

} // namespace panotra
