/// Objective-C objects and the simulated device's objects behind them.
///
/// An object that the device counts has one Objective-C object, whose `retain` and `release` count the device's: both
/// live and die together. Strings, numbers, dictionaries and data are values: they cross as copies.
///
/// Everything here is borrowed in, and borrowed out.
#pragma once

#include "simulator/device/ClassTable.h"

#import <Foundation/Foundation.h>

#include <set>
#include <string>

namespace panotra::hosts {

/// The Objective-C object for an object of the device, made at the first asking. Null gives nil.
id hostObjectFor(HostObject* object);
/// The device's object for an Objective-C object: its peer, or a copy of a value, or a plain object for what the device
/// has no like of. Nil gives null.
HostObject* deviceObjectFor(id object);
/// The peer, null for an object that has none.
HostObject* peerOf(id object);
/// The peer if it is of that kind.
template <typename Kind> Kind* peerAs(id object)
{
    return dynamic_cast<Kind*>(peerOf(object));
}

/// Makes the two each other's; `object` brings its one count.
void attachPeer(id hostObject, HostObject* object);
/// The names of the classes of the host that were sent their `+initialize`, the first message to each.
const std::set<std::string>& initializedClasses();
/// A new object of the device of the kind that `hostClass` makes, attached to `hostObject`.
void attachNewPeer(id hostObject);
/// Hands an object that the caller counts to the device's pool, and answers its Objective-C object.
id autoreleasedHostObject(HostObject* counted);

/// The device's class for an Objective-C class: of the same name, or of the nearest superclass that the device knows.
HostClass& deviceClassOf(Class hostClass);
/// Makes a class that was registered with the runtime known to the device: its fields, its methods, its objects.
void addRegisteredClass(Class hostClass);

/// A view, colour, layer … as the platform's own programs see it.
inline sim::Device& device()
{
    return *sim::Device::current();
}

} // namespace panotra::hosts

/// An object whose peer is made with it, or attached by its initialiser.
@interface DeviceObject : NSObject
@end
