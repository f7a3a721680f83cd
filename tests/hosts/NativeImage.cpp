/// Shared objects of this machine.
#include "tests/hosts/LibraryImage.h"

#include "simulator/Files.h"

#include <dlfcn.h>
#include <elf.h>
#include <link.h>

#include <cstdint>
#include <cstring>
#include <map>
#include <stdexcept>
#include <utility>
#include <variant>

namespace panotra::hosts {

namespace {

std::string contentsOf(const std::string& path)
{
    auto contents = sim::readFile(path);
    if (const auto* const error = std::get_if<sim::FileError>(&contents))
        throw std::runtime_error(error->message);
    return std::get<std::string>(std::move(contents));
}

struct CutOff : std::runtime_error {
    CutOff()
        : std::runtime_error("ends in the middle of something")
    {
    }
};

template <typename Value> Value valueAt(const std::string& contents, std::size_t place)
{
    Value value {};
    if (contents.size() < sizeof value || place > contents.size() - sizeof value)
        throw CutOff();
    std::memcpy(&value, contents.data() + place, sizeof value);
    return value;
}

/// Up to the zero that ends it.
std::string nameAt(const std::string& contents, std::size_t table, std::size_t offset)
{
    if (table > contents.size() || offset > contents.size() - table)
        throw CutOff();
    const std::size_t end = contents.find('\0', table + offset);
    if (end == std::string::npos)
        throw CutOff();
    return contents.substr(table + offset, end - table - offset);
}

struct Symbol {
    std::uintptr_t address; ///< from the start of the library
    std::size_t size;
};
using Symbols = std::map<std::string, Symbol>;

/// Every symbol with a place in the file, local ones included.
Symbols symbolsOf(const std::string& contents)
{
    Symbols symbols;
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
                symbols.emplace(
                    nameAt(contents, names.sh_offset, symbol.st_name), Symbol { symbol.st_value, symbol.st_size });
        }
    }
    return symbols;
}

/// Where the library was put.
std::uintptr_t load(const std::string& path)
{
    // A name without a slash would be looked for among the system's libraries.
    const std::string place = path.find('/') == std::string::npos ? "./" + path : path;
    void* const handle = dlopen(place.c_str(), RTLD_NOW | RTLD_LOCAL);
    link_map* map = nullptr;
    if (handle == nullptr || dlinfo(handle, RTLD_DI_LINKMAP, &map) != 0) {
        const std::string reason = dlerror();
        throw std::runtime_error(reason.starts_with(place) ? reason : path + ": " + reason);
    }
    return map->l_addr;
}

class NativeImage : public LibraryImage {
public:
    NativeImage(std::uintptr_t base, Symbols symbols)
        : m_base(base)
        , m_symbols(std::move(symbols))
    {
    }

    void* symbol(const std::string& name, std::size_t size) const override
    {
        const auto found = m_symbols.find(name);
        return found == m_symbols.end() || found->second.size < size
            ? nullptr
            : reinterpret_cast<void*>(m_base + found->second.address);
    }

private:
    std::uintptr_t m_base;
    Symbols m_symbols;
};

} // namespace

std::unique_ptr<LibraryImage> openNativeImage(const std::string& path)
{
    // Read first, for the loader would fall into what a file that is cut off lacks. It says itself what is no library.
    const std::string contents = contentsOf(path);
    try {
        Symbols symbols = contents.starts_with(ELFMAG) ? symbolsOf(contents) : Symbols {};
        return std::make_unique<NativeImage>(load(path), std::move(symbols));
    } catch (const CutOff& error) {
        throw std::runtime_error(path + ": " + error.what());
    }
}

} // namespace panotra::hosts
