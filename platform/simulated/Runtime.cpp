/// Classes by name, counting and pools.
#include "platform/Runtime.h"

#include "simulator/device/Services.h"

#include <cstdint>

namespace panotra {

Class objc_getClass(const char* name) noexcept
{
    sim::Device* const device = sim::Device::current();
    return device == nullptr || name == nullptr ? nullptr : device->classes->find(name);
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

// A pool is known by the mark that it set.

void* objc_autoreleasePoolPush() noexcept
{
    sim::Device* const device = sim::Device::current();
    return device == nullptr ? nullptr : reinterpret_cast<void*>(device->classes->pushAutoreleasePool());
}

void objc_autoreleasePoolPop(void* pool) noexcept
{
    if (sim::Device* const device = sim::Device::current())
        device->classes->popAutoreleasePool(reinterpret_cast<std::uintptr_t>(pool));
}

} // namespace panotra
