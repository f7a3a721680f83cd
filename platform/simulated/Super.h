/// Messages to super.
#pragma once

#include "platform/ClassDescription.h"
#include "simulator/device/Device.h"

namespace panotra::simulated {

/// The superclass of the described class, if `self` is of that class or one derived from it; else null.
inline HostClass* superclassOf(id self, const ClassDescription& description)
{
    if (sim::Device::current() == nullptr || self == nullptr)
        return nullptr;
    const HostClass* hostClass = self->isa;
    while (hostClass != nullptr && hostClass->name != description.name)
        hostClass = hostClass->superclass;
    return hostClass == nullptr ? nullptr : hostClass->superclass;
}

/// Sends a message to `self` from the superclass of the described class on. Null answers Result(), as does an
/// object that is not of that class.
template <typename Result, typename... Arguments>
Result sendSuper(id self, const ClassDescription& description, const char* name, Arguments... arguments)
{
    const HostClass* const superclass = superclassOf(self, description);
    if (superclass == nullptr)
        return Result();
    const HostSelector* const selector = sim::selector(name);
    return sim::call<Result>(superclass->find(selector), self, selector, arguments...);
}

} // namespace panotra::simulated
