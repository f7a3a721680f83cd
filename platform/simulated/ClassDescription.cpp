/// Classes of ours in the device's class table.
#include "platform/ClassDescription.h"

#include "platform/simulated/Host.h"
#include "platform/simulated/Super.h"

namespace panotra {

namespace {

/// The class in this process's table, registered at its first use. Null where the superclass is missing, or the process
/// has a class of another's under the name.
HostClass* registeredClass(sim::ClassTable& classes, const ClassDescription& description)
{
    HostClass* const known = classes.find(description.name);
    if (known != nullptr)
        return known->isRegistered ? known : nullptr;
    if (classes.find(description.superclass) == nullptr)
        return nullptr;
    HostClass& added = classes.add(description.name, description.superclass);
    added.isRegistered = true;
    added.instanceSize = description.size;
    added.construct = description.construct;
    added.destroy = description.destroy;
    for (const InstanceVariable& variable : description.instanceVariables)
        added.fields.push_back({ variable.name, variable.encoding[0], variable.offset });
    for (const Method& method : description.methods)
        added.methods[sim::selector(method.selector)] = method.implementation;
    for (const Method& method : description.classMethods)
        added.classMethods[sim::selector(method.selector)] = method.implementation;
    return &added;
}

} // namespace

id allocate(const ClassDescription& description) noexcept
{
    sim::Device* const device = sim::Device::current();
    HostClass* const hostClass = device == nullptr ? nullptr : registeredClass(*device->classes, description);
    return hostClass == nullptr ? nullptr : device->classes->instantiate(*hostClass);
}

/// By the platform's rule an initialiser takes over a count of its receiver and answers one: of the receiver, of
/// another object, or of none. Here it is given a count to take, and what it answers is left to the pool.
id superInit(id self, const ClassDescription& description) noexcept
{
    if (simulated::superclassOf(self, description) == nullptr)
        return nullptr;
    retain(self);
    id const answer = simulated::sendSuper<HostObject*>(self, description, "init");
    if (answer != self)
        return autorelease(answer);
    release(self);
    return self;
}

void* instanceVariables(id object, const ClassDescription& description) noexcept
{
    if (sim::Device::current() == nullptr || object == nullptr || object->isa->name != description.name)
        return nullptr;
    return object->instanceVariables.get();
}

} // namespace panotra
