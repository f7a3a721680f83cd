/// The header and the load commands.
#include "tests/hosts/macho/MachFile.h"

#include "tests/hosts/macho/MachOpcodes.h"

#include <algorithm>
#include <optional>

namespace panotra::hosts {

namespace {

constexpr std::uint32_t magic64 = 0xfeedfacf;
constexpr std::uint32_t typeLibrary = 6;

constexpr std::uint32_t commandSegment64 = 0x19;
constexpr std::uint32_t commandDyldInfo = 0x22;
/// Where to look for libraries. Everything that is imported here is the process's own, so that there is nothing to look
/// for.
constexpr std::uint32_t commandRunPath = 0x8000001c;
/// Set in commands that a loader may not overlook.
constexpr std::uint32_t mustBeUnderstood = 0x80000000;

constexpr std::uint32_t protectionWrite = 2;
constexpr std::uint32_t protectionExecute = 4;

constexpr std::uint32_t sectionTypeMask = 0xff;
constexpr std::uint32_t sectionConstructors = 0x09;
/// Destructors, thread-local values and the functions that make them, constructors by offset.
constexpr std::uint32_t sectionsThatRun[] = { 0x0a, 0x11, 0x12, 0x13, 0x14, 0x15, 0x16 };

constexpr std::size_t nameLength = 16;
constexpr std::uint64_t pageSize = 0x1000;
/// Far more than the mixer will ever need, and far less than what a damaged size could ask for.
constexpr std::uint64_t mostMemory = 64 << 20;

Bytes part(Bytes bytes, std::uint64_t offset, std::uint64_t size)
{
    MachCursor cursor(bytes);
    cursor.take(offset);
    return cursor.take(size);
}

void addConstructors(MachFile& file, const MachSegment& segment, std::uint64_t address, std::uint64_t size)
{
    if (size % pointerSize != 0 || address < segment.address || size > segment.size
        || address - segment.address > segment.size - size)
        throw MachError("has constructors outside their segment");
    for (std::uint64_t offset = 0; offset < size; offset += pointerSize)
        file.constructors.push_back(address + offset);
}

void readSection(MachFile& file, const MachSegment& segment, MachCursor& command)
{
    const std::string name = command.name(nameLength);
    command.take(nameLength);
    const auto address = command.number<std::uint64_t>();
    const auto size = command.number<std::uint64_t>();
    command.take(16); // place in the file, alignment, relocations of object files
    const std::uint32_t type = command.number<std::uint32_t>() & sectionTypeMask;
    command.take(12);
    if (std::ranges::find(sectionsThatRun, type) != std::end(sectionsThatRun))
        throw MachError("has a section " + name + ", which is not understood here");
    if (type == sectionConstructors)
        addConstructors(file, segment, address, size);
}

void checkPlace(const MachFile& file, const MachSegment& segment)
{
    if (segment.address % pageSize != 0 || segment.size > mostMemory || segment.address > mostMemory - segment.size)
        throw MachError("has a segment " + segment.name + " in an impossible place");
    if (segment.contents.size() > segment.size)
        throw MachError("has a segment " + segment.name + " that holds more than its size");
    for (const MachSegment& other : file.segments) {
        if (segment.address < other.address + other.size && other.address < segment.address + segment.size)
            throw MachError("has a segment " + segment.name + " over " + other.name);
    }
    if (segment.isWritable && segment.isExecutable)
        throw MachError("has a segment " + segment.name + " that is both code and data");
}

void readSegment(MachFile& file, Bytes bytes, MachCursor command)
{
    MachSegment segment;
    segment.name = command.name(nameLength);
    segment.address = command.number<std::uint64_t>();
    segment.size = command.number<std::uint64_t>();
    const auto offset = command.number<std::uint64_t>();
    segment.contents = part(bytes, offset, command.number<std::uint64_t>());
    command.take(4); // the most that it may be allowed later
    const auto protection = command.number<std::uint32_t>();
    segment.isWritable = (protection & protectionWrite) != 0;
    segment.isExecutable = (protection & protectionExecute) != 0;
    checkPlace(file, segment);
    const auto sectionCount = command.number<std::uint32_t>();
    command.take(4);
    for (std::uint32_t index = 0; index < sectionCount; ++index)
        readSection(file, segment, command);
    file.size = std::max(file.size, segment.address + segment.size);
    file.segments.push_back(std::move(segment));
}

/// The streams of opcodes, in the order in which the command names them.
struct LinkInformation {
    Bytes rebases;
    Bytes bindings;
    Bytes weakBindings;
    Bytes lazyBindings;
};

LinkInformation readLinkInformation(Bytes bytes, MachCursor command)
{
    const auto stream = [&] {
        const auto offset = command.number<std::uint32_t>();
        return part(bytes, offset, command.number<std::uint32_t>());
    };
    // Of an initialiser list the order is the written one.
    return LinkInformation { stream(), stream(), stream(), stream() };
}

void checkHeader(MachCursor& header, MachFile& file)
{
    if (header.number<std::uint32_t>() != magic64)
        throw MachError("is no 64-bit Mach-O file");
    file.processor = header.number<std::uint32_t>();
    if (file.processor != processorX86 && file.processor != processorArm)
        throw MachError("is for an unknown processor");
    header.take(4); // which kind of that processor
    if (header.number<std::uint32_t>() != typeLibrary)
        throw MachError("is no dynamic library");
}

} // namespace

MachFile readMachFile(Bytes bytes)
{
    MachFile file;
    MachCursor header(bytes);
    checkHeader(header, file);
    const auto commandCount = header.number<std::uint32_t>();
    const auto commandBytes = header.number<std::uint32_t>();
    header.take(8); // flags, and nothing

    std::optional<LinkInformation> link;
    MachCursor commands(header.take(commandBytes));
    for (std::uint32_t index = 0; index < commandCount; ++index) {
        const auto kind = commands.number<std::uint32_t>();
        const auto size = commands.number<std::uint32_t>();
        if (size < 8)
            throw MachError("has a load command without a size");
        const MachCursor command(commands.take(size - 8));
        if (kind == commandSegment64)
            readSegment(file, bytes, command);
        else if ((kind & ~mustBeUnderstood) == commandDyldInfo)
            link = readLinkInformation(bytes, command);
        else if ((kind & mustBeUnderstood) != 0 && kind != commandRunPath)
            throw MachError(
                "has a load command " + std::to_string(kind & ~mustBeUnderstood) + ", which is not understood here");
    }
    if (file.segments.empty())
        throw MachError("has no segments");
    if (link) {
        readRebases(file, link->rebases);
        readBindings(file, link->bindings, BindingStream::AtLoad);
        readBindings(file, link->weakBindings, BindingStream::AtLoad);
        readBindings(file, link->lazyBindings, BindingStream::AtFirstCall);
    }
    return file;
}

} // namespace panotra::hosts
