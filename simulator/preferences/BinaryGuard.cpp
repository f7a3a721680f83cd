/// The guard for binary property lists: a table of objects that refer to each other by number.
#include "simulator/preferences/PropertyListGuard.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace panotra::preferences {

namespace {

constexpr std::size_t trailerBytes = 32;

/// Walks what can be reached from the root; every object is measured once, however often it is referred to.
class Walk {
public:
    explicit Walk(std::string_view bytes)
        : m_bytes(bytes)
    {
    }

    std::optional<std::string> objection()
    {
        if (!readTrailer())
            return "is no property list";
        m_measures.resize(m_objects);
        if (!measure(m_root, 1))
            return m_objection;
        if (m_measures[m_root].values > mostValues)
            return "unfolds to too many values";
        return std::nullopt;
    }

private:
    enum class State { Unseen, Open, Measured };

    struct Measure {
        State state = State::Unseen;
        std::size_t height = 0; ///< levels, itself included
        std::size_t values = 0; ///< with everything below it unfolded; counts no further than mostValues + 1
    };

    /// An object's kind, the number of its elements and where they begin.
    struct Head {
        unsigned kind = 0;
        unsigned detail = 0;
        std::size_t count = 0;
        std::size_t body = 0;
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
        return isWidth(m_offsetBytes) && isWidth(m_referenceBytes) && m_root < m_objects && m_table < trailer
            && m_objects <= (trailer - m_table) / m_offsetBytes;
    }

    std::size_t byteAt(std::size_t at) const { return static_cast<unsigned char>(m_bytes[at]); }

    std::uint64_t bigEndian(std::size_t at, std::size_t bytes) const
    {
        std::uint64_t value = 0;
        for (std::size_t i = 0; i < bytes; ++i)
            value = value << 8 | byteAt(at + i);
        return value;
    }

    bool holds(std::size_t at, std::size_t count, std::size_t elementBytes) const
    {
        return at <= m_table && count <= (m_table - at) / elementBytes;
    }

    bool refuse(const char* reason)
    {
        m_objection = reason;
        return false;
    }

    bool refuseAsMalformed() { return refuse("is no property list"); }
    bool refuseAsLossy() { return refuse("holds a value that cannot be kept as it is"); }

    bool readHead(std::size_t object, Head& head) const
    {
        std::uint64_t at = bigEndian(m_table + object * m_offsetBytes, m_offsetBytes);
        if (!holds(at, 1, 1))
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

    bool measure(std::size_t object, std::size_t depth)
    {
        if (object >= m_objects)
            return refuseAsMalformed();
        Measure& known = m_measures[object];
        if (known.state == State::Open)
            return refuse("holds a collection that holds itself");
        if (depth > deepestNesting || (known.state == State::Measured && depth + known.height - 1 > deepestNesting))
            return refuse("nests its values too deeply");
        if (known.state == State::Measured)
            return true;
        known = { State::Open, 1, 1 };
        Head head;
        if (!readHead(object, head))
            return refuseAsMalformed();
        if (!measureBody(head, known, depth))
            return false;
        known.state = State::Measured;
        return true;
    }

    bool measureBody(const Head& head, Measure& known, std::size_t depth)
    {
        switch (head.kind) {
        case 0x0: // false and true; there are a null and a filler, too
            return head.detail == 0x8 || head.detail == 0x9 || refuseAsLossy();
        case 0x1:
            return checkInteger(head);
        case 0x2: // of 4 or 8 bytes
            return ((head.detail == 2 || head.detail == 3) && holds(head.body, 1, std::size_t { 1 } << head.detail))
                || refuseAsLossy();
        case 0x3: // a date: a real of 8 bytes
            return (head.detail == 3 && holds(head.body, 1, 8)) || refuseAsLossy();
        case 0x4: // data
            return holds(head.body, head.count, 1) || refuseAsMalformed();
        case 0x5:
            return checkAscii(head);
        case 0x6:
            return checkUtf16(head);
        case 0x8: // a UID
            return (head.detail < 4 && holds(head.body, 1, head.detail + 1)) || refuseAsLossy();
        case 0xA:
            return measureElements(head, 1, known, depth);
        case 0xD: // keys, then values
            return measureElements(head, 2, known, depth);
        default:
            return refuseAsLossy();
        }
    }

    bool checkInteger(const Head& head)
    {
        if (head.detail > 4 || !holds(head.body, 1, std::size_t { 1 } << head.detail))
            return refuseAsMalformed();
        const bool isWide = head.detail == 4;
        return !isWide || bigEndian(head.body, 8) == 0 || refuseAsLossy();
    }

    bool checkAscii(const Head& head)
    {
        if (!holds(head.body, head.count, 1))
            return refuseAsMalformed();
        const auto text = m_bytes.substr(head.body, head.count);
        const auto isAscii = [](unsigned char byte) {
            return byte >= 0x01 && byte <= 0x7F;
        };
        return std::ranges::all_of(text, isAscii) || refuseAsLossy();
    }

    bool checkUtf16(const Head& head)
    {
        if (!holds(head.body, head.count, 2))
            return refuseAsMalformed();
        const auto unit = [&](std::size_t i) {
            return bigEndian(head.body + 2 * i, 2);
        };
        const auto isHigh = [](std::uint64_t code) {
            return code >= 0xD800 && code < 0xDC00;
        };
        const auto isLow = [](std::uint64_t code) {
            return code >= 0xDC00 && code < 0xE000;
        };
        for (std::size_t i = 0; i < head.count; ++i) {
            const bool isPair = isHigh(unit(i)) && i + 1 < head.count && isLow(unit(i + 1));
            if (unit(i) == 0 || isLow(unit(i)) || (isHigh(unit(i)) && !isPair))
                return refuseAsLossy();
            i += isPair;
        }
        return true;
    }

    bool measureElements(const Head& head, std::size_t referencesEach, Measure& known, std::size_t depth)
    {
        if (!holds(head.body, head.count, referencesEach * m_referenceBytes))
            return refuseAsMalformed();
        for (std::size_t i = 0; i < head.count * referencesEach; ++i) {
            const std::uint64_t element = bigEndian(head.body + i * m_referenceBytes, m_referenceBytes);
            if (!measure(element, depth + 1))
                return false;
            known.height = std::max(known.height, m_measures[element].height + 1);
            known.values = std::min(known.values + m_measures[element].values, mostValues + 1);
        }
        return true;
    }

    std::string_view m_bytes;
    std::size_t m_offsetBytes = 0;
    std::size_t m_referenceBytes = 0;
    std::size_t m_objects = 0;
    std::size_t m_root = 0;
    std::size_t m_table = 0;
    std::vector<Measure> m_measures;
    std::string m_objection;
};

} // namespace

std::optional<std::string> objectionToBinary(std::string_view bytes)
{
    return Walk(bytes).objection();
}

} // namespace panotra::preferences
