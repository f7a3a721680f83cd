/// The table of the platform's functions.
#include "tests/hosts/Imports.h"

#include <dlfcn.h>

#include <string>

namespace panotra::hosts {

/// The program exports its stand-ins under names that the linker's option --wrap gives.
void* importedSymbol(std::string_view name)
{
    const std::string own(name);
    void* const standIn = dlsym(RTLD_DEFAULT, ("__wrap_" + own).c_str());
    return standIn != nullptr ? standIn : dlsym(RTLD_DEFAULT, own.c_str());
}

} // namespace panotra::hosts
