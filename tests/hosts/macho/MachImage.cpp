/// From the file to running code.
#include "tests/hosts/macho/MachImage.h"

#include "simulator/Files.h"
#include "tests/hosts/macho/LinkMap.h"
#include "tests/hosts/macho/MachFile.h"
#include "tests/hosts/macho/MachImports.h"

#include <sys/mman.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <span>
#include <system_error>
#include <vector>

namespace panotra::hosts {

namespace {

#if defined(__x86_64__)
constexpr std::uint32_t ownProcessor = processorX86;
#elif defined(__aarch64__)
constexpr std::uint32_t ownProcessor = processorArm;
#endif

[[noreturn]] void failBySystem(const char* what)
{
    throw MachError(std::string(what) + ": " + std::generic_category().message(errno));
}

/// Memory for the whole library. It is never given back: what is hooked stays hooked.
std::span<std::byte> reserve(std::uint64_t size)
{
    void* const memory = mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (memory == MAP_FAILED)
        failBySystem("finds no memory");
    return { static_cast<std::byte*>(memory), size };
}

std::uint64_t readPointer(const std::byte* place)
{
    std::uint64_t value;
    std::memcpy(&value, place, sizeof value);
    return value;
}

void writePointer(std::byte* place, std::uint64_t value)
{
    std::memcpy(place, &value, sizeof value);
}

void bind(const MachFile& file, std::span<std::byte> memory, const ImportResolver& resolver)
{
    for (const MachBinding& binding : file.bindings) {
        if (binding.symbol.front() != '_' && binding.symbol != "dyld_stub_binder")
            throw MachError("imports " + binding.symbol + ", which is no C name");
        const std::string_view name = std::string_view(binding.symbol).substr(binding.symbol.front() == '_' ? 1 : 0);
        void* const address = resolver(name);
        if (address == nullptr && binding.need == ImportNeed::Required)
            throw MachError("imports " + binding.symbol + ", which is not here");
        const auto value = address == nullptr
            ? 0
            : reinterpret_cast<std::uintptr_t>(address) + static_cast<std::uint64_t>(binding.addend);
        writePointer(&memory[binding.address], value);
    }
}

void protect(const MachFile& file, std::span<std::byte> memory)
{
    for (const MachSegment& segment : file.segments) {
        std::byte* const start = memory.data() + segment.address;
        const int protection
            = PROT_READ | (segment.isWritable ? PROT_WRITE : 0) | (segment.isExecutable ? PROT_EXEC : 0);
        if (mprotect(start, segment.size, protection) != 0)
            failBySystem("cannot be protected");
        if (segment.isExecutable)
            __builtin___clear_cache(reinterpret_cast<char*>(start), reinterpret_cast<char*>(start + segment.size));
    }
}

bool isCode(const MachFile& file, std::uint64_t address)
{
    return std::ranges::any_of(file.segments, [address](const MachSegment& segment) {
        return segment.isExecutable && address >= segment.address && address - segment.address < segment.size;
    });
}

/// None is run unless all of them can be.
void runConstructors(const MachFile& file, std::span<std::byte> memory)
{
    const std::uint64_t start = reinterpret_cast<std::uintptr_t>(memory.data());
    std::vector<void (*)()> constructors;
    for (const std::uint64_t place : file.constructors) {
        const std::uint64_t address = readPointer(&memory[place]);
        if (!isCode(file, address - start))
            throw MachError("has a constructor outside its code");
        constructors.push_back(reinterpret_cast<void (*)()>(address));
    }
    for (const auto constructor : constructors)
        constructor();
}

std::span<std::byte> load(Bytes bytes, const std::string& path, const ImportResolver& resolver)
{
    const MachFile file = readMachFile(bytes);
    if (file.processor != ownProcessor)
        throw MachError("is for another processor");
    const std::span<std::byte> memory = reserve(file.size);
    for (const MachSegment& segment : file.segments) {
        if (!segment.contents.empty())
            std::memcpy(memory.data() + segment.address, segment.contents.data(), segment.contents.size());
    }
    const auto base = reinterpret_cast<std::uintptr_t>(memory.data());
    for (const std::uint64_t place : file.rebases)
        writePointer(&memory[place], readPointer(&memory[place]) + base);
    bind(file, memory, resolver);
    protect(file, memory);
    addMachLibrary(memory, std::filesystem::absolute(path).string());
    runConstructors(file, memory);
    return memory;
}

std::string readFile(const std::string& path)
{
    auto contents = sim::readFile(path);
    if (const auto* const error = std::get_if<sim::FileError>(&contents))
        throw std::runtime_error(error->message);
    return std::get<std::string>(std::move(contents));
}

class MachImage : public LibraryImage {
public:
    MachImage(std::span<std::byte> memory, LinkMap map)
        : m_memory(memory)
        , m_map(std::move(map))
    {
    }

    void* symbol(const std::string& name, std::size_t size) const override
    {
        const auto place = m_map.find('_' + name);
        if (place == m_map.end() || place->second >= m_memory.size() || size > m_memory.size() - place->second)
            return nullptr;
        return &m_memory[place->second];
    }

private:
    std::span<std::byte> m_memory;
    LinkMap m_map;
};

} // namespace

std::unique_ptr<LibraryImage> openMachImage(const std::string& path, const ImportResolver& resolver)
{
    const std::string contents = readFile(path);
    LinkMap map = readLinkMap(readFile(std::filesystem::path(path).replace_extension(".map")));
    try {
        return std::make_unique<MachImage>(load(std::as_bytes(std::span(contents)), path, resolver), std::move(map));
    } catch (const MachError& error) {
        throw std::runtime_error(path + ": " + error.what());
    }
}

bool isMachFile(const std::string& path)
{
    constexpr std::string_view beginning = "\xcf\xfa\xed\xfe";
    std::ifstream file(path, std::ios::binary);
    std::string found(beginning.size(), '\0');
    file.read(found.data(), static_cast<std::streamsize>(found.size()));
    return found == beginning;
}

} // namespace panotra::hosts
