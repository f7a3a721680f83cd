/// Stand-ins that only the file format calls for.
#include "tests/hosts/macho/MachImports.h"

#include <dlfcn.h>

#include <cstdint>
#include <cstdlib>
#include <utility>
#include <vector>

namespace panotra::hosts {

namespace {

/// The platform's handle for "wherever it is".
constexpr std::intptr_t platformDefaultHandle = -2;

void* findByName(void* handle, const char* name)
{
    const bool isAnywhere = reinterpret_cast<std::intptr_t>(handle) == platformDefaultHandle;
    return dlsym(isAnywhere ? RTLD_DEFAULT : handle, name);
}

struct MachLibrary {
    std::span<const std::byte> memory;
    std::string path;
};

/// Never emptied: what is loaded stays.
std::vector<MachLibrary>& machLibraries()
{
    static std::vector<MachLibrary> all;
    return all;
}

/// The name of the function that the address lies in is left out, as the platform leaves it out of what exports
/// nothing.
int findLibrary(const void* address, Dl_info* information)
{
    for (const MachLibrary& library : machLibraries()) {
        const auto* const byte = static_cast<const std::byte*>(address);
        if (byte < library.memory.data() || byte >= library.memory.data() + library.memory.size())
            continue;
        *information = { library.path.c_str(), const_cast<std::byte*>(library.memory.data()), nullptr, nullptr };
        return 1;
    }
    return dladdr(address, information);
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
    if (name == "dladdr")
        return reinterpret_cast<void*>(findLibrary);
    if (name == "dyld_stub_binder")
        return reinterpret_cast<void*>(bindLazily);
    return nullptr;
}

void addMachLibrary(std::span<const std::byte> memory, std::string path)
{
    machLibraries().push_back({ memory, std::move(path) });
}

} // namespace panotra::hosts
