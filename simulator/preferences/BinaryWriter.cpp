/// Binary property lists written: objects one after the other, then a table of where each begins.
#include "simulator/preferences/PropertyListFormats.h"
#include "simulator/preferences/Utf16.h"
#include "simulator/text/Utf8.h"

#include <algorithm>
#include <bit>
#include <unordered_map>

namespace panotra::preferences {

namespace {

void appendBigEndian(std::string& bytes, std::uint64_t value, std::size_t width)
{
    for (std::size_t i = width; i-- > 0;)
        bytes.push_back(static_cast<char>(value >> (8 * i) & 0xFF));
}

/// 1, 2, 4 or 8.
std::size_t widthOf(std::uint64_t value)
{
    return value <= 0xFF ? 1 : value <= 0xFFFF ? 2 : value <= 0xFFFFFFFF ? 4 : 8;
}

/// The byte with which an object begins.
char marker(unsigned kind, unsigned detail)
{
    return static_cast<char>(kind << 4 | detail);
}

/// A marker that tells the width as the exponent of two.
char sizedMarker(unsigned kind, std::size_t width)
{
    return marker(kind, static_cast<unsigned>(std::countr_zero(width)));
}

std::string encoded(bool boolean)
{
    return { marker(0x0, boolean ? 0x9 : 0x8) };
}

std::string encoded(std::int64_t integer)
{
    // Shorter ones have no sign.
    const auto bits = static_cast<std::uint64_t>(integer);
    const std::size_t width = widthOf(bits);
    std::string bytes { sizedMarker(0x1, width) };
    appendBigEndian(bytes, bits, width);
    return bytes;
}

std::string encoded(std::uint64_t integer)
{
    std::string bytes { sizedMarker(0x1, 16) };
    appendBigEndian(bytes, 0, 8);
    appendBigEndian(bytes, integer, 8);
    return bytes;
}

std::string encoded(double real)
{
    std::string bytes { sizedMarker(0x2, 8) };
    appendBigEndian(bytes, std::bit_cast<std::uint64_t>(real), 8);
    return bytes;
}

std::string encoded(Date date)
{
    std::string bytes = encoded(date.seconds);
    bytes.front() = sizedMarker(0x3, 8);
    return bytes;
}

std::string encoded(Uid uid)
{
    const std::size_t width = widthOf(uid.number);
    std::string bytes { marker(0x8, static_cast<unsigned>(width - 1)) };
    appendBigEndian(bytes, uid.number, width);
    return bytes;
}

std::string encodedHead(unsigned kind, std::size_t count)
{
    constexpr unsigned countFollows = 0xF;
    if (count < countFollows)
        return { marker(kind, static_cast<unsigned>(count)) };
    return marker(kind, countFollows) + encoded(static_cast<std::int64_t>(count));
}

std::string encoded(const Data& data)
{
    return encodedHead(0x4, data.bytes.size()) + data.bytes;
}

std::string encoded(const std::string& text)
{
    const auto isAscii = [](unsigned char byte) {
        return byte <= 0x7F;
    };
    if (std::ranges::all_of(text, isAscii))
        return encodedHead(0x5, text.size()) + text;
    const std::string units = toUtf16(text);
    return encodedHead(0x6, units.size() / 2) + units;
}

class BinaryWriter {
public:
    std::optional<std::string> write(const Value& root)
    {
        const std::uint64_t number = place(root);
        if (!m_isWhole)
            return std::nullopt;
        const std::size_t referenceBytes = widthOf(m_objects.size());
        std::string file(binaryMark);
        std::vector<std::uint64_t> offsets;
        for (const Object& object : m_objects) {
            offsets.push_back(file.size());
            file += object.bytes;
            for (const std::uint64_t reference : object.references)
                appendBigEndian(file, reference, referenceBytes);
        }
        const std::uint64_t table = file.size();
        const std::size_t offsetBytes = widthOf(table);
        for (const std::uint64_t offset : offsets)
            appendBigEndian(file, offset, offsetBytes);
        constexpr std::size_t unusedBytes = 6;
        file.append(unusedBytes, '\0');
        appendBigEndian(file, offsetBytes, 1);
        appendBigEndian(file, referenceBytes, 1);
        appendBigEndian(file, m_objects.size(), 8);
        appendBigEndian(file, number, 8);
        appendBigEndian(file, table, 8);
        return file;
    }

private:
    struct Object {
        std::string bytes; ///< without the references
        std::vector<std::uint64_t> references {}; ///< of a collection, the numbers of what is in it
    };

    /// Answers the object's number. Equal objects that refer to nothing are one.
    std::uint64_t placeLeaf(std::string bytes)
    {
        const auto [known, isNew] = m_leaves.try_emplace(std::move(bytes), m_objects.size());
        if (isNew)
            m_objects.push_back({ known->first });
        return known->second;
    }

    std::uint64_t placeText(const std::string& text)
    {
        m_isWhole &= isUtf8(text);
        return placeLeaf(encoded(text));
    }

    std::uint64_t place(const Value& value)
    {
        return std::visit([this](const auto& content) { return placeContent(content); }, value.content);
    }

    template <typename Content> std::uint64_t placeContent(const Content& content)
    {
        return placeLeaf(encoded(content));
    }
    std::uint64_t placeContent(const std::string& text) { return placeText(text); }

    std::uint64_t placeContent(const Array& array)
    {
        const std::uint64_t number = m_objects.size();
        m_objects.push_back({ encodedHead(0xA, array.size()) });
        std::vector<std::uint64_t> references;
        for (const Value& element : array)
            references.push_back(place(element));
        m_objects[number].references = std::move(references);
        return number;
    }

    std::uint64_t placeContent(const Dictionary& dictionary)
    {
        const std::uint64_t number = m_objects.size();
        m_objects.push_back({ encodedHead(0xD, dictionary.size()) });
        std::vector<std::uint64_t> references;
        for (const Entry& entry : dictionary)
            references.push_back(placeText(entry.key));
        for (const Entry& entry : dictionary)
            references.push_back(place(entry.value));
        m_objects[number].references = std::move(references);
        return number;
    }

    std::vector<Object> m_objects;
    std::unordered_map<std::string, std::uint64_t> m_leaves;
    bool m_isWhole = true; ///< every text is UTF-8
};

} // namespace

std::optional<std::string> writeBinary(const Value& value)
{
    return BinaryWriter().write(value);
}

} // namespace panotra::preferences
