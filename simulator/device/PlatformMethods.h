/// The host's own implementations of the methods that programs hook, override, ask for or call by selector.
#pragma once

#include "simulator/device/Device.h"

#include <span>
#include <string_view>

namespace panotra::sim {

class ClassTable;

/// The second argument of every method.
using Selector = const HostSelector*;

/// The process in which a method runs.
inline Device& process()
{
    return *Device::current();
}

/// A row of a table of methods.
struct PlatformMethod {
    const char* className;
    const char* selector;
    HostClass::Implementation implementation;
};

void addMethods(ClassTable& classes, std::span<const PlatformMethod> methods);

/// Views, layers and the screen.
void addViewMethods(ClassTable& classes);
/// The audio service, the buttons, the indicator, sounds, the ringer.
void addServiceMethods(ClassTable& classes);
/// The application, the assistant, other overlays and the gesture framework.
void addHomeScreenMethods(ClassTable& classes);

/// What only some systems have: null for a method that every process has, and for one that is answered elsewhere.
HostClass::Implementation laterImplementation(std::string_view className, std::string_view method);

} // namespace panotra::sim
