/// The bytes of the small library.
#include "tests/hosts/macho/SampleLibrary.h"

#include <cstring>

namespace panotra::hosts {

namespace {

constexpr std::uint64_t importPointer = 0x1000;

template <typename Number> void append(std::string& bytes, Number number)
{
    bytes.append(reinterpret_cast<const char*>(&number), sizeof number);
}

void appendName(std::string& bytes, std::string name)
{
    name.resize(16);
    bytes += name;
}

template <typename Number> void put(std::string& bytes, std::size_t place, Number number)
{
    std::memcpy(&bytes[place], &number, sizeof number);
}

/// A jump to where the import's pointer points, which is in the distance.
std::string jumpToImport()
{
    constexpr auto distance = static_cast<std::uint32_t>(importPointer - sampleConstructor);
    std::string code;
#if defined(__x86_64__)
    constexpr std::uint32_t ownLength = 6;
    append(code, std::uint16_t { 0x25ff }); // jmp *distance(%rip)
    append(code, distance - ownLength);
#elif defined(__aarch64__)
    append(code, 0x58000010 | (distance / 4) << 5); // ldr x16, distance
    append(code, 0xd61f0200); // br x16
#endif
    return code;
}

std::string segmentCommand(const SampleSegment& segment)
{
    std::string command;
    appendName(command, segment.name);
    for (const std::uint64_t number : { segment.address, segment.size, segment.fileOffset, segment.fileSize })
        append(command, number);
    append(command, segment.protection);
    append(command, segment.protection);
    append(command, static_cast<std::uint32_t>(segment.sections.size()));
    append(command, std::uint32_t { 0 });
    for (const SampleSection& section : segment.sections) {
        appendName(command, section.name);
        appendName(command, segment.name);
        append(command, section.address);
        append(command, section.size);
        for (const std::uint32_t number : { 0u, 3u, 0u, 0u, section.type, 0u, 0u, 0u })
            append(command, number);
    }
    return command;
}

} // namespace

SampleLibrary::SampleLibrary()
    : segments {
        { "__TEXT", 0, samplePageSize, 0, samplePageSize, 5, { { "__text", sampleConstructor, 8, 0x80000400 } } },
        { "__DATA", samplePageSize, samplePageSize, samplePageSize, 0x20, 3,
            { { "__mod_init_func", samplePageSize + 8, 8, 9 } } },
    }
    , contents(samplePageSize + 0x20, '\0')
    // Type pointer; segment 1 at 8; two pointers.
    , rebases(stream("\x11\x21\x08\x52"))
    // Library 1; the symbol; type pointer; segment 1 at 0; bind.
    , bindings(stream("\x11\x40_started\0\x51\x71\x00\x90\x00"))
{
#if defined(__x86_64__)
    processor = 0x01000007;
#elif defined(__aarch64__)
    processor = 0x0100000c;
#endif
    contents.replace(sampleConstructor, jumpToImport().size(), jumpToImport());
    put(contents, samplePageSize + 8, std::uint64_t { sampleConstructor });
    put(contents, samplePageSize + 16, std::uint64_t { samplePageSize + 24 });
    put(contents, samplePageSize + 24, std::uint64_t { 42 });
}

std::string SampleLibrary::bytes() const
{
    std::string commands;
    std::uint32_t count = 0;
    const auto add = [&](std::uint32_t kind, const std::string& command) {
        append(commands, kind);
        append(commands, static_cast<std::uint32_t>(command.size() + 8));
        commands += command;
        ++count;
    };
    for (const SampleSegment& segment : segments)
        add(0x19, segmentCommand(segment));
    std::string link;
    std::string streams;
    for (const std::string* const stream : { &rebases, &bindings, &weakBindings, &lazyBindings }) {
        append(link, static_cast<std::uint32_t>(contents.size() + streams.size()));
        append(link, static_cast<std::uint32_t>(stream->size()));
        streams += *stream;
    }
    add(linkCommand, link + std::string(8, '\0')); // no exports
    for (const std::uint32_t kind : furtherCommands)
        add(kind, {});

    std::string header;
    for (const std::uint32_t number :
        { magic, processor, 0u, type, count, static_cast<std::uint32_t>(commands.size()), 0u, 0u })
        append(header, number);
    header += commands;
    std::string file = contents;
    file.replace(0, header.size(), header);
    return file + streams;
}

} // namespace panotra::hosts
