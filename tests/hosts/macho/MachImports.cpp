/// Stand-ins that only the file format calls for.
#include "tests/hosts/macho/MachImports.h"

#include <dlfcn.h>

#include <cstdint>
#include <cstdlib>

namespace panotra::hosts {

namespace {

/// The platform's handle for "wherever it is".
constexpr std::intptr_t platformDefaultHandle = -2;

void* findByName(void* handle, const char* name)
{
    const bool isAnywhere = reinterpret_cast<std::intptr_t>(handle) == platformDefaultHandle;
    return dlsym(isAnywhere ? RTLD_DEFAULT : handle, name);
}

/// Would bind a function at its first call. Everything is bound at load here, so nobody comes this way.
void bindLazily()
{
    std::abort();
}

} // namespace

void* machImport(std::string_view name)
{
    if (name == "dlsym")
        return reinterpret_cast<void*>(findByName);
    if (name == "dyld_stub_binder")
        return reinterpret_cast<void*>(bindLazily);
    return nullptr;
}

} // namespace panotra::hosts
