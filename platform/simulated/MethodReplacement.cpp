/// Method replacement in the class table.
#include "platform/MethodReplacement.h"

#include "simulator/device/Services.h"

namespace panotra {

void replaceMethod(Class hostClass, const char* selector, IMP replacement, IMP* previous) noexcept
{
    sim::Device* const device = sim::Device::current();
    if (device != nullptr && hostClass != nullptr && selector != nullptr)
        device->classes->replace(*hostClass, sim::selector(selector), replacement, previous);
}

// Replacing a method of one of the device's classes leaves its superclass alone: there is nothing to prepare.

void overrideInherited(Class, const char*, IMP) noexcept { }

IMP inheritedImplementation(Class hostClass, SEL selector)
{
    return hostClass == nullptr || hostClass->superclass == nullptr ? nullptr : hostClass->superclass->find(selector);
}

bool hasMethod(Class hostClass, const char* selector) noexcept
{
    return hostClass != nullptr && selector != nullptr && hostClass->find(sim::selector(selector)) != nullptr;
}

} // namespace panotra
