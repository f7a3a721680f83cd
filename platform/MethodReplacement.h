/// Hooking: another implementation for a method that a host class has already.
///
/// Called on the thread that loads the library.
#pragma once

#include "platform/Runtime.h"

namespace panotra {

/// Makes `replacement` the implementation of instance method `selector` of `hostClass` and stores the one it
/// replaces, inherited ones included, in `*previous` before the replacement can be called.
/// A null class, or a method that the class neither has nor inherits: nothing happens, `*previous` stays.
void replaceMethod(Class hostClass, const char* selector, IMP replacement, IMP* previous) noexcept;

} // namespace panotra
