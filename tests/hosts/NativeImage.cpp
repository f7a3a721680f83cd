/// Shared objects of this machine.
#include "tests/hosts/LibraryImage.h"

#include <dlfcn.h>
#include <elf.h>
#include <link.h>

#include <cstring>
#include <fstream>
#include <iterator>
#include <map>
#include <stdexcept>

namespace panotra::hosts {

namespace {

std::string contentsOf(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    std::string contents { std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>() };
    if (!file || contents.size() < sizeof(ElfW(Ehdr)))
        throw std::runtime_error(path + ": cannot be read");
    return contents;
}

template <typename Value> Value valueAt(const std::string& contents, std::size_t place)
{
    Value value {};
    if (place + sizeof value > contents.size())
        throw std::runtime_error("a library that is cut off");
    std::memcpy(&value, contents.data() + place, sizeof value);
    return value;
}

/// Every symbol with a place in the file, local ones included.
std::map<std::string, std::uintptr_t> symbolsOf(const std::string& contents)
{
    std::map<std::string, std::uintptr_t> symbols;
    const auto header = valueAt<ElfW(Ehdr)>(contents, 0);
    const auto section = [&](std::size_t index) {
        return valueAt<ElfW(Shdr)>(contents, header.e_shoff + index * sizeof(ElfW(Shdr)));
    };
    for (std::size_t index = 0; index < header.e_shnum; ++index) {
        const auto table = section(index);
        if (table.sh_type != SHT_SYMTAB)
            continue;
        const auto names = section(table.sh_link);
        for (std::size_t offset = 0; offset < table.sh_size; offset += sizeof(ElfW(Sym))) {
            const auto symbol = valueAt<ElfW(Sym)>(contents, table.sh_offset + offset);
            if (symbol.st_shndx != SHN_UNDEF)
                symbols.emplace(contents.c_str() + names.sh_offset + symbol.st_name, symbol.st_value);
        }
    }
    return symbols;
}

class NativeImage : public LibraryImage {
public:
    explicit NativeImage(const std::string& path)
        : m_symbols(symbolsOf(contentsOf(path)))
    {
        void* const handle = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
        link_map* map = nullptr;
        if (handle == nullptr || dlinfo(handle, RTLD_DI_LINKMAP, &map) != 0)
            throw std::runtime_error(dlerror());
        m_base = map->l_addr;
    }

    void* symbol(const std::string& name) const override
    {
        const auto place = m_symbols.find(name);
        return place == m_symbols.end() ? nullptr : reinterpret_cast<void*>(m_base + place->second);
    }

private:
    std::map<std::string, std::uintptr_t> m_symbols;
    std::uintptr_t m_base = 0;
};

} // namespace

std::unique_ptr<LibraryImage> openNativeImage(const std::string& path)
{
    return std::make_unique<NativeImage>(path);
}

} // namespace panotra::hosts
