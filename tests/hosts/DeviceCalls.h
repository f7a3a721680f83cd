/// How the device's calls of its own methods become messages, and messages reach what the device does of itself.
#pragma once

#include "simulator/device/Geometry.h"
#include "simulator/device/Object.h"

#include <objc/runtime.h>

#include <string>

namespace panotra::hosts {

/// The entry of a method table that sends the message, for a method of that type. Null for a type that no device calls.
HostClass::Implementation messageOfType(const char* encoding);

/// Puts messages in the place of the methods that the device calls by name, so that it is what the runtime finds that
/// runs: the host's method, or a hook of it.
void routeDeviceCallsThroughMessages();

/// What the device itself does for the method, with the device's types.
HostClass::Implementation ownImplementation(const char* className, SEL selector);

/// Calls it.
template <typename Result, typename... Arguments>
Result callOwn(const char* className, HostObject* self, SEL selector, Arguments... arguments)
{
    return sim::call<Result>(
        ownImplementation(className, selector), self, sim::selector(sel_getName(selector)), arguments...);
}

} // namespace panotra::hosts
