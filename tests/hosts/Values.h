/// Values that cross between Objective-C and the device as copies.
#pragma once

#include "simulator/device/Device.h"

#import <Foundation/Foundation.h>

namespace panotra::hosts {

/// A string, number, dictionary or data object of the device's as a Foundation object, autoreleased. Nil for any other
/// kind.
id valueFor(HostObject* object);
/// A Foundation object as one of the device's, in the device's pool. What it has no like of becomes a plain object.
HostObject* copyOfValue(id value);

/// Nil for null; what is no number, boolean or string becomes an empty list, which converts to nothing.
id valueOfJson(const sim::Json& json);

/// Empty for what is no string.
std::optional<std::string> textOf(id string);

} // namespace panotra::hosts
