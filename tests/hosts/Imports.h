/// What the library finds in the process: the platform's functions that it imports, by name. The allow-list of the
/// link stubs names the same functions.
///
/// A shared object of this machine is linked so that it asks for `__wrap_NAME` where it would import NAME, and the
/// program exports those; a loader of other files binds by this table.
#pragma once

#include <string_view>

namespace panotra::hosts {

/// The address of the function or object that the library knows as `name`, its C name. Null for a name that neither the
/// platform's stand-ins nor this process has.
void* importedSymbol(std::string_view name);

/// Hooking frameworks give the class a method of its own, or replace what they find, wherever it is inherited from.
enum class HookingFramework { AddsMethods, ReplacesInPlace };
/// The one of this process from now on. The first, until it is said.
void chooseHookingFramework(HookingFramework kind);

/// From now on the library finds under the name a class that has of the one that it would find what that inherits, and
/// nothing else.
void emptyClass(const char* name);

} // namespace panotra::hosts
