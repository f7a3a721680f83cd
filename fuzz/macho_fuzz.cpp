/// Feeds any bytes to the loader of the phone's library files: they are refused with a reason, or what they ask for can
/// be done without touching memory that is not the library's. Nothing of them is run.
#include "tests/hosts/macho/LinkMap.h"
#include "tests/hosts/macho/MachFile.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <span>
#include <string_view>

namespace {

using namespace panotra::hosts;

void require(bool holds)
{
    if (!holds)
        std::abort();
}

/// A pointer at that address lies in one segment, whole.
const MachSegment* segmentOf(const MachFile& file, std::uint64_t address)
{
    const auto segment = std::ranges::find_if(file.segments, [address](const MachSegment& each) {
        return address >= each.address && each.size >= pointerSize && address - each.address <= each.size - pointerSize;
    });
    return segment == file.segments.end() ? nullptr : &*segment;
}

void requireWritable(const MachFile& file, std::uint64_t address)
{
    const MachSegment* const segment = segmentOf(file, address);
    require(segment != nullptr && segment->isWritable);
}

void check(const MachFile& file, Bytes bytes)
{
    require(file.processor == processorX86 || file.processor == processorArm);
    for (const MachSegment& segment : file.segments) {
        require(segment.size <= file.size && segment.address <= file.size - segment.size);
        require(segment.contents.size() <= segment.size);
        require(segment.contents.empty()
            || (segment.contents.data() >= bytes.data()
                && segment.contents.data() + segment.contents.size() <= bytes.data() + bytes.size()));
        require(!segment.isWritable || !segment.isExecutable);
    }
    for (const std::uint64_t place : file.rebases)
        requireWritable(file, place);
    for (const MachBinding& binding : file.bindings)
        requireWritable(file, binding.address);
    for (const std::uint64_t place : file.constructors)
        require(segmentOf(file, place) != nullptr);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const Bytes bytes = std::as_bytes(std::span(data, size));
    try {
        check(readMachFile(bytes), bytes);
    } catch (const MachError& error) {
        require(!std::string_view(error.what()).empty());
    }
    readLinkMap({ reinterpret_cast<const char*>(data), size });
    return 0;
}
