/// A small Mach-O library, made byte by byte: sound as it stands, and easily damaged.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace panotra::hosts {

struct SampleSection {
    std::string name;
    std::uint64_t address;
    std::uint64_t size;
    std::uint32_t type;
};

struct SampleSegment {
    std::string name;
    std::uint64_t address;
    std::uint64_t size;
    std::uint64_t fileOffset;
    std::uint64_t fileSize;
    std::uint32_t protection; ///< 1 reads, 2 writes, 4 executes
    std::vector<SampleSection> sections;
};

/// Its constructor is a jump to the import `_started`. Its data are, from 0x1000:
///
///     +0  the import's address   +8  the constructor's address   +16  the address of +24   +24  the number 42
struct SampleLibrary {
    SampleLibrary();

    /// The file. The streams of opcodes follow the segments' contents.
    std::string bytes() const;

    std::uint32_t magic = 0xfeedfacf;
    std::uint32_t processor; ///< this machine's
    std::uint32_t type = 6;
    std::vector<SampleSegment> segments;
    std::string contents; ///< of both segments, as long as the file is before the opcodes
    std::string rebases;
    std::string bindings;
    std::string weakBindings;
    std::string lazyBindings;
    std::uint32_t linkCommand = 0x80000022;
    std::vector<std::uint32_t> furtherCommands; ///< kinds, each without contents
};

/// The bytes of a literal, zeros among them included.
template <std::size_t length> std::string stream(const char (&opcodes)[length])
{
    return std::string(opcodes, length - 1);
}

constexpr std::uint32_t samplePageSize = 0x1000;
constexpr std::uint32_t sampleConstructor = 0x800; ///< address of its code

} // namespace panotra::hosts
