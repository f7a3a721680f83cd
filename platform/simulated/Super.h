/// Messages to super.
#pragma once

#include "platform/ClassDescription.h"
#include "simulator/device/Device.h"

namespace panotra::simulated {

/// Sends a message to `self` from the superclass of the described class on. Null answers Result(), as does an
/// object that is not of that class.
template <typename Result, typename... Arguments>
Result sendSuper(id self, const ClassDescription& description, const char* name, Arguments... arguments)
{
    if (sim::Device::current() == nullptr || self == nullptr)
        return Result();
    const HostClass* hostClass = self->isa;
    while (hostClass != nullptr && hostClass->name != description.name)
        hostClass = hostClass->superclass;
    if (hostClass == nullptr || hostClass->superclass == nullptr)
        return Result();
    const HostSelector* const selector = sim::selector(name);
    return sim::call<Result>(hostClass->superclass->find(selector), self, selector, arguments...);
}

} // namespace panotra::simulated
