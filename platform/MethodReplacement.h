/// Hooking: another implementation for a method that a host class has already.
///
/// Called on the thread that loads the library. None of it sends a message to a class of the host, which may not be
/// ready for its first.
#pragma once

#include "platform/Runtime.h"

namespace panotra {

/// Makes `replacement` the implementation of instance method `selector` of `hostClass` and stores the one it
/// replaces, inherited ones included, in `*previous` before the replacement can be called.
/// A null class, or a method that the class neither has nor inherits: nothing happens, `*previous` stays.
void replaceMethod(Class hostClass, const char* selector, IMP replacement, IMP* previous) noexcept;

/// Where `hostClass` only inherits the instance method, gives it one of its own: `callInherited`, which is to call
/// `inheritedImplementation`. A null class, a method of its own and a missing method: nothing happens.
void overrideInherited(Class hostClass, const char* selector, IMP callInherited) noexcept;
/// What an object of the class's superclass would run now. Null for a null class. From any thread.
IMP inheritedImplementation(Class hostClass, SEL selector);

/// Whether objects of the class have the instance method, inherited ones included. False for a null class.
bool hasMethod(Class hostClass, const char* selector) noexcept;

} // namespace panotra
