/// What a Mach-O library says of how it wants to be loaded. All addresses count from the start of the library.
#pragma once

#include "tests/hosts/macho/MachCursor.h"

#include <cstdint>
#include <string>
#include <vector>

namespace panotra::hosts {

struct MachSegment {
    std::string name;
    std::uint64_t address = 0;
    std::uint64_t size = 0; ///< in memory; what the file does not fill is zero
    Bytes contents;
    bool isWritable = false;
    bool isExecutable = false;
};

/// What to do where an import is not there.
enum class ImportNeed { Required, Optional };

/// A pointer to fill with an import's address.
struct MachBinding {
    std::uint64_t address = 0;
    std::string symbol; ///< as the file has it, with the underscore that C names get
    std::int64_t addend = 0;
    ImportNeed need = ImportNeed::Required;
};

struct MachFile {
    std::uint32_t processor = 0;
    std::vector<MachSegment> segments; ///< in the order of the file, none over another
    std::uint64_t size = 0; ///< of all segments in memory
    std::vector<std::uint64_t> rebases; ///< pointers into the library itself
    std::vector<MachBinding> bindings; ///< those that would be bound at the first call included
    std::vector<std::uint64_t> constructors; ///< pointers to functions to call, in order
};

/// Bytes.
constexpr std::uint64_t pointerSize = 8;

constexpr std::uint32_t processorX86 = 0x01000007;
constexpr std::uint32_t processorArm = 0x0100000c;

/// Reads a library for a 64-bit processor with classic link information. The result points into `bytes`. Every address
/// in it lies, whole, in a segment, and the pointers to fill in one that can be written. Throws MachError for a damaged
/// file and for one that asks for more than is done here: the newer chains of fixups, thread-local values, other ways
/// to run code at load.
MachFile readMachFile(Bytes bytes);

} // namespace panotra::hosts
