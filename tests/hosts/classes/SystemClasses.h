/// The classes of the home screen in the shape of the device's system: each with the superclass, the methods, the types
/// and the instance variables that the table of systems gives it.
#pragma once

#include <objc/runtime.h>

namespace panotra::hosts {

/// Makes the classes, if the device's process has the shape of a system. Once a process.
void makeSystemClasses();

/// The class that this process calls `name`; nil if it has none.
Class classNamed(const char* name);
/// What the process calls the class.
const char* nameOfClass(Class hostClass);

} // namespace panotra::hosts
