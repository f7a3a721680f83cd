/// Binary property lists read: a table of objects that refer to each other by number.
#include "simulator/preferences/PropertyListFormats.h"
#include "simulator/preferences/Utf16.h"

#include <algorithm>
#include <bit>

namespace panotra::preferences {

namespace {

constexpr std::size_t trailerBytes = 32;

/// Reads what the root refers to, as often as it is referred to, so that what it costs is what it unfolds to.
class BinaryReader {
public:
    explicit BinaryReader(std::string_view bytes)
        : m_bytes(bytes)
    {
    }

    ReadValue read()
    {
        Value root;
        if (!readTrailer())
            return { std::nullopt, "is no property list" };
        if (!readObject(m_root, root))
            return { std::nullopt, m_objection };
        return { std::move(root) };
    }

private:
    /// An object's kind, the number of its elements and where they begin.
    struct Head {
        unsigned kind = 0;
        unsigned detail = 0;
        std::uint64_t count = 0;
        std::uint64_t body = 0;
    };

    bool readTrailer()
    {
        if (m_bytes.size() < binaryMark.size() + trailerBytes)
            return false;
        const std::size_t trailer = m_bytes.size() - trailerBytes;
        m_offsetBytes = byteAt(trailer + 6);
        m_referenceBytes = byteAt(trailer + 7);
        m_objects = bigEndian(trailer + 8, 8);
        m_root = bigEndian(trailer + 16, 8);
        m_table = bigEndian(trailer + 24, 8);
        const auto isWidth = [](std::size_t bytes) {
            return bytes >= 1 && bytes <= 8;
        };
        // The table fills what is between the objects and the trailer: a number that was damaged does not pass.
        return isWidth(m_offsetBytes) && isWidth(m_referenceBytes) && m_root < m_objects && m_table < trailer
            && (trailer - m_table) % m_offsetBytes == 0 && m_objects == (trailer - m_table) / m_offsetBytes;
    }

    std::size_t byteAt(std::uint64_t at) const { return static_cast<unsigned char>(m_bytes[at]); }

    std::uint64_t bigEndian(std::uint64_t at, std::size_t bytes) const
    {
        std::uint64_t value = 0;
        for (std::size_t i = 0; i < bytes; ++i)
            value = value << 8 | byteAt(at + i);
        return value;
    }

    bool holds(std::uint64_t at, std::uint64_t count, std::size_t elementBytes) const
    {
        return at <= m_table && count <= (m_table - at) / elementBytes;
    }

    bool object(std::optional<std::string> objection)
    {
        if (objection)
            m_objection = std::move(*objection);
        return !objection;
    }

    bool refuseAsMalformed() { return object("is no property list"); }
    bool refuseAsLossy() { return object("holds a value that cannot be kept as it is"); }

    bool readHead(std::uint64_t number, Head& head) const
    {
        std::uint64_t at = bigEndian(m_table + number * m_offsetBytes, m_offsetBytes);
        if (at < binaryMark.size() || !holds(at, 1, 1))
            return false;
        head.kind = static_cast<unsigned>(byteAt(at) >> 4);
        head.detail = static_cast<unsigned>(byteAt(at) & 0x0F);
        head.count = head.detail;
        head.body = ++at;
        const bool isCounted = head.kind >= 0x4 && head.kind != 0x8;
        if (!isCounted || head.detail != 0x0F)
            return true;
        // The count did not fit: it follows as an integer of its own.
        if (!holds(at, 1, 1) || byteAt(at) >> 4 != 0x1)
            return false;
        const std::size_t bytes = std::size_t { 1 } << (byteAt(at) & 0x0F);
        if (bytes > 8 || !holds(++at, 1, bytes))
            return false;
        head.count = bigEndian(at, bytes);
        head.body = at + bytes;
        return true;
    }

    bool readObject(std::uint64_t number, Value& value)
    {
        if (number >= m_objects)
            return refuseAsMalformed();
        if (std::ranges::find(m_open, number) != m_open.end())
            return object("holds a collection that holds itself");
        Head head;
        if (!readHead(number, head))
            return refuseAsMalformed();
        if (!object(m_extent.addValues(1)))
            return false;
        const bool isCollection = head.kind == 0xA || head.kind == 0xD;
        if (!isCollection)
            return readLeaf(head, value);
        if (m_open.size() == deepestNesting)
            return object("nests its values too deeply");
        m_open.push_back(number);
        const bool isRead = head.kind == 0xA ? readArray(head, value) : readDictionary(head, value);
        m_open.pop_back();
        return isRead;
    }

    bool readLeaf(const Head& head, Value& value)
    {
        switch (head.kind) {
        case 0x0: // false and true; there are a null and a filler, too
            value.content = head.detail == 0x9;
            return head.detail == 0x8 || head.detail == 0x9 || refuseAsLossy();
        case 0x1:
            return readInteger(head, value);
        case 0x2:
            return readReal(head, value);
        case 0x3: // of 8 bytes
            if (head.detail != 3 || !holds(head.body, 1, 8))
                return refuseAsLossy();
            value.content = Date { std::bit_cast<double>(bigEndian(head.body, 8)) };
            return true;
        case 0x4:
            return readData(head, value);
        case 0x5:
        case 0x6:
            return readText(head, value.content.emplace<std::string>());
        case 0x8: // of 1 to 4 bytes
            if (head.detail > 3 || !holds(head.body, 1, head.detail + 1))
                return refuseAsLossy();
            value.content = Uid { static_cast<std::uint32_t>(bigEndian(head.body, head.detail + 1)) };
            return true;
        default:
            return refuseAsLossy();
        }
    }

    /// Of 1, 2 and 4 bytes without a sign, of 8 with one; of 16 only what would be an unsigned one of 8.
    bool readInteger(const Head& head, Value& value)
    {
        if (head.detail > 4 || !holds(head.body, 1, std::size_t { 1 } << head.detail))
            return refuseAsMalformed();
        if (head.detail < 4) {
            value.content = static_cast<std::int64_t>(bigEndian(head.body, std::size_t { 1 } << head.detail));
            return true;
        }
        const std::uint64_t low = bigEndian(head.body + 8, 8);
        constexpr auto beyondSigned = std::uint64_t { 1 } << 63;
        if (low < beyondSigned)
            value.content = static_cast<std::int64_t>(low);
        else
            value.content = low;
        return bigEndian(head.body, 8) == 0 || refuseAsLossy();
    }

    bool readReal(const Head& head, Value& value)
    {
        const bool isSingle = head.detail == 2;
        if ((!isSingle && head.detail != 3) || !holds(head.body, 1, isSingle ? 4 : 8))
            return refuseAsLossy();
        if (isSingle)
            value.content = double { std::bit_cast<float>(static_cast<std::uint32_t>(bigEndian(head.body, 4))) };
        else
            value.content = std::bit_cast<double>(bigEndian(head.body, 8));
        return true;
    }

    bool readData(const Head& head, Value& value)
    {
        if (!holds(head.body, head.count, 1))
            return refuseAsMalformed();
        if (!object(m_extent.addText(head.count)))
            return false;
        value.content = Data { std::string(m_bytes.substr(head.body, head.count)) };
        return true;
    }

    bool readText(const Head& head, std::string& text)
    {
        const std::size_t unitBytes = head.kind == 0x5 ? 1 : 2;
        if (!holds(head.body, head.count, unitBytes))
            return refuseAsMalformed();
        const std::string_view units = m_bytes.substr(head.body, head.count * unitBytes);
        const auto isAscii = [](unsigned char byte) {
            return byte <= 0x7F;
        };
        if (unitBytes == 2 ? !fromUtf16(units, text) : !std::ranges::all_of(units, isAscii))
            return refuseAsLossy();
        if (unitBytes == 1)
            text = units;
        return object(m_extent.addText(text.size()));
    }

    bool readKey(std::uint64_t number, std::string& key)
    {
        Head head;
        if (number >= m_objects || !readHead(number, head))
            return refuseAsMalformed();
        if (head.kind != 0x5 && head.kind != 0x6)
            return object("has a key that is no text");
        return readText(head, key);
    }

    std::uint64_t reference(const Head& head, std::uint64_t place) const
    {
        return bigEndian(head.body + place * m_referenceBytes, m_referenceBytes);
    }

    bool readArray(const Head& head, Value& value)
    {
        if (!holds(head.body, head.count, m_referenceBytes))
            return refuseAsMalformed();
        auto& array = value.content.emplace<Array>();
        for (std::uint64_t i = 0; i < head.count; ++i) {
            if (!readObject(reference(head, i), array.emplace_back()))
                return false;
        }
        return true;
    }

    /// The keys, then the values.
    bool readDictionary(const Head& head, Value& value)
    {
        if (!holds(head.body, head.count, 2 * m_referenceBytes))
            return refuseAsMalformed();
        auto& dictionary = value.content.emplace<Dictionary>();
        for (std::uint64_t i = 0; i < head.count; ++i) {
            Entry& entry = dictionary.emplace_back();
            if (!readKey(reference(head, i), entry.key) || !readObject(reference(head, head.count + i), entry.value))
                return false;
        }
        mergeEqualKeys(dictionary);
        return true;
    }

    std::string_view m_bytes;
    std::size_t m_offsetBytes = 0;
    std::size_t m_referenceBytes = 0;
    std::uint64_t m_objects = 0;
    std::uint64_t m_root = 0;
    std::uint64_t m_table = 0;
    std::vector<std::uint64_t> m_open; ///< the collections that are being read, from the root on
    Extent m_extent;
    std::string m_objection;
};

} // namespace

ReadValue readBinary(std::string_view bytes)
{
    if (!bytes.starts_with(binaryMark))
        return { std::nullopt, "is no property list" };
    return BinaryReader(bytes).read();
}

} // namespace panotra::preferences
