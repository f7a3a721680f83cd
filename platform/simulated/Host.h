/// What every part of the simulated backend needs: the device that lives now, and its objects behind handles.
///
/// Without a device every handle counts as null, so that handles may outlive the process that they belonged to.
#pragma once

#include "platform/CoreGraphics.h"
#include "platform/NSString.h"
#include "simulator/device/Device.h"
#include "simulator/device/Geometry.h"
#include "simulator/device/HomeScreen.h"
#include "simulator/device/Services.h"
#include "simulator/device/Values.h"

#include <utility>

namespace panotra::simulated {

/// The handle's object if it is of that kind; null for every other kind, for null and without a device.
template <typename Object> Object* objectOf(const NSObject& handle)
{
    return sim::Device::current() == nullptr ? nullptr : dynamic_cast<Object*>(handle.get());
}

/// The handle's object, of any kind; null without a device.
inline HostObject* objectOf(const NSObject& handle)
{
    return sim::Device::current() == nullptr ? nullptr : handle.get();
}

/// A new object of a class that is looked up by name, as a handle; null where the process lacks the class.
template <typename Handle, typename Object, typename... Arguments>
Handle create(const char* className, Arguments&&... arguments)
{
    sim::Device* const device = sim::Device::current();
    if (device == nullptr || device->classes->find(className) == nullptr)
        return nullptr;
    return adopt<Handle>(device->classes->make<Object>(className, std::forward<Arguments>(arguments)...));
}

/// The shared object of a class; null where the process lacks the class.
template <typename Handle> Handle shared(const char* className)
{
    sim::Device* const device = sim::Device::current();
    return device == nullptr ? Handle() : retained<Handle>(device->home->shared(className));
}

/// The answer of a class to a message; null where the process lacks the class, or the class the method.
template <typename Handle> Handle askClass(const char* className, const char* selector)
{
    sim::Device* const device = sim::Device::current();
    const HostClass* const hostClass = device == nullptr ? nullptr : device->classes->find(className);
    if (hostClass == nullptr)
        return nullptr;
    const HostSelector* const name = sim::selector(selector);
    const auto method = hostClass->classMethods.find(name);
    if (method == hostClass->classMethods.end())
        return nullptr;
    return retained<Handle>(sim::call<HostObject*>(method->second, nullptr, name));
}

/// The object that a class answers. A device that has taken no system's shape keeps no table of such methods: the
/// shared object of the class stands for the answer.
template <typename Handle> Handle sharedBy(const char* className, const char* selector)
{
    const sim::Device* const device = sim::Device::current();
    return device != nullptr && device->system ? askClass<Handle>(className, selector) : shared<Handle>(className);
}

/// Sends a message to a handle's object. Null, and a method that the object does not have, answer Result().
template <typename Result, typename... Arguments>
Result send(const NSObject& receiver, const char* selector, Arguments... arguments)
{
    return sim::send<Result>(objectOf(receiver), sim::selector(selector), arguments...);
}

/// The answer to a message as a handle with a count of its own.
template <typename Handle, typename... Arguments>
Handle sendForObject(const NSObject& receiver, const char* selector, Arguments... arguments)
{
    return retained<Handle>(send<HostObject*>(receiver, selector, arguments...));
}

inline std::string textOf(const char* text)
{
    return text == nullptr ? std::string() : std::string(text);
}

// Geometry. The layouts are the platform's, on both sides of the seam: methods that take or answer such structures
// are called across it through the method table.

static_assert(sizeof(CGRect) == sizeof(sim::Rect) && sizeof(CGPoint) == sizeof(sim::Point));

inline sim::Point toDevice(CGPoint point)
{
    return { point.x, point.y };
}

inline sim::Rect toDevice(CGRect rect)
{
    return { rect.origin.x, rect.origin.y, rect.size.width, rect.size.height };
}

inline sim::Transform toDevice(CGAffineTransform transform)
{
    return { transform.a, transform.b, transform.c, transform.d, transform.tx, transform.ty };
}

inline CGPoint fromDevice(sim::Point point)
{
    return { point.x, point.y };
}

inline CGRect fromDevice(sim::Rect rect)
{
    return { { rect.x, rect.y }, { rect.width, rect.height } };
}

} // namespace panotra::simulated
