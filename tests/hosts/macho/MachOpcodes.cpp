/// A walk through opcodes: each changes where the next pointer is or what it gets, or fills it.
#include "tests/hosts/macho/MachOpcodes.h"

namespace panotra::hosts {

namespace {

constexpr std::uint8_t opcodeMask = 0xf0;
constexpr std::uint8_t immediateMask = 0x0f;
constexpr std::uint8_t typePointer = 1;
/// Far more pointers than a library of the most memory that is allowed could have of its own need.
constexpr std::size_t mostFixups = 1 << 20;

/// Where the next pointer is. The walk may leave the segment for a while; the pointer must not.
class Place {
public:
    explicit Place(const MachFile& file)
        : m_file(file)
    {
    }

    void set(std::uint8_t segment, std::uint64_t offset)
    {
        if (segment >= m_file.segments.size())
            throw MachError("points into a segment that it does not have");
        m_segment = &m_file.segments[segment];
        m_offset = offset;
    }

    /// Numbers wrap around, and so a file goes backwards.
    void advance(std::uint64_t bytes) { m_offset += bytes; }

    std::uint64_t pointer() const
    {
        if (m_segment == nullptr)
            throw MachError("has a pointer before it says where");
        if (m_segment->size < pointerSize || m_offset > m_segment->size - pointerSize)
            throw MachError("has a pointer outside its segment");
        if (!m_segment->isWritable)
            throw MachError("has a pointer in a segment that cannot be written");
        return m_segment->address + m_offset;
    }

private:
    const MachFile& m_file;
    const MachSegment* m_segment = nullptr;
    std::uint64_t m_offset = 0;
};

void checkType(std::uint8_t type)
{
    if (type != typePointer)
        throw MachError("has a fixup that is no pointer");
}

template <typename Fixup> void checkCount(const std::vector<Fixup>& fixups)
{
    if (fixups.size() >= mostFixups)
        throw MachError("has too many pointers");
}

} // namespace

void readRebases(MachFile& file, Bytes stream)
{
    enum Opcode : std::uint8_t {
        Done = 0x00,
        SetType = 0x10,
        SetPlace = 0x20,
        AddUleb = 0x30,
        AddPointers = 0x40,
        RebaseCount = 0x50,
        RebaseUlebCount = 0x60,
        RebaseAndAddUleb = 0x70,
        RebaseUlebCountSkipping = 0x80,
    };

    Place place(file);
    const auto rebase = [&](std::uint64_t count, std::uint64_t skipped) {
        for (; count > 0; --count) {
            checkCount(file.rebases);
            file.rebases.push_back(place.pointer());
            place.advance(pointerSize + skipped);
        }
    };
    for (MachCursor cursor(stream); !cursor.isAtEnd();) {
        const auto byte = cursor.number<std::uint8_t>();
        const std::uint8_t immediate = byte & immediateMask;
        switch (byte & opcodeMask) {
        case Done:
            return;
        case SetType:
            checkType(immediate);
            break;
        case SetPlace:
            place.set(immediate, cursor.uleb());
            break;
        case AddUleb:
            place.advance(cursor.uleb());
            break;
        case AddPointers:
            place.advance(immediate * pointerSize);
            break;
        case RebaseCount:
            rebase(immediate, 0);
            break;
        case RebaseUlebCount:
            rebase(cursor.uleb(), 0);
            break;
        case RebaseAndAddUleb:
            rebase(1, cursor.uleb());
            break;
        case RebaseUlebCountSkipping: {
            const std::uint64_t count = cursor.uleb();
            rebase(count, cursor.uleb());
            break;
        }
        default:
            throw MachError("has an unknown rebase opcode");
        }
    }
}

void readBindings(MachFile& file, Bytes stream, BindingStream kind)
{
    enum Opcode : std::uint8_t {
        Done = 0x00,
        SetLibrary = 0x10,
        SetLibraryUleb = 0x20,
        SetSpecialLibrary = 0x30,
        SetSymbol = 0x40,
        SetType = 0x50,
        SetAddend = 0x60,
        SetPlace = 0x70,
        AddUleb = 0x80,
        Bind = 0x90,
        BindAndAddUleb = 0xa0,
        BindAndAddPointers = 0xb0,
        BindUlebCountSkipping = 0xc0,
    };
    constexpr std::uint8_t optionalImport = 0x1;

    Place place(file);
    MachBinding binding;
    const auto bind = [&](std::uint64_t count, std::uint64_t skipped) {
        for (; count > 0; --count) {
            checkCount(file.bindings);
            if (binding.symbol.empty())
                throw MachError("binds a pointer to nothing");
            binding.address = place.pointer();
            file.bindings.push_back(binding);
            place.advance(pointerSize + skipped);
        }
    };
    for (MachCursor cursor(stream); !cursor.isAtEnd();) {
        const auto byte = cursor.number<std::uint8_t>();
        const std::uint8_t immediate = byte & immediateMask;
        switch (byte & opcodeMask) {
        case Done:
            if (kind == BindingStream::AtLoad)
                return;
            break;
        case SetLibrary: // every name means the same in all libraries here
        case SetSpecialLibrary:
            break;
        case SetLibraryUleb:
            cursor.uleb();
            break;
        case SetSymbol:
            binding.symbol = cursor.text();
            binding.need = (immediate & optionalImport) != 0 ? ImportNeed::Optional : ImportNeed::Required;
            break;
        case SetType:
            checkType(immediate);
            break;
        case SetAddend:
            binding.addend = cursor.sleb();
            break;
        case SetPlace:
            place.set(immediate, cursor.uleb());
            break;
        case AddUleb:
            place.advance(cursor.uleb());
            break;
        case Bind:
            bind(1, 0);
            break;
        case BindAndAddUleb:
            bind(1, cursor.uleb());
            break;
        case BindAndAddPointers:
            bind(1, immediate * pointerSize);
            break;
        case BindUlebCountSkipping: {
            const std::uint64_t count = cursor.uleb();
            bind(count, cursor.uleb());
            break;
        }
        default:
            throw MachError("has an unknown bind opcode");
        }
    }
}

} // namespace panotra::hosts
