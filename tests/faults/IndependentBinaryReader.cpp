/// Binary property lists read in the plainest way; and what the program has read, in the same words.
#include "tests/faults/IndependentReader.h"
#include "tests/faults/Meaning.h"

#include <bit>
#include <stdexcept>

namespace panotra::preferences::testing {

namespace {

/// Throws where the bytes end too early.
std::uint64_t numberAt(const std::string& bytes, std::size_t at, std::size_t width)
{
    if (width == 0 || width > 8)
        throw std::out_of_range("width");
    std::uint64_t number = 0;
    for (std::size_t i = 0; i < width; ++i)
        number = number * 256 + static_cast<unsigned char>(bytes.at(at + i));
    return number;
}

struct PlainBinaryReader {
    std::string objects; ///< the file up to the table
    std::vector<std::uint64_t> offsets;
    std::size_t referenceWidth = 0;

    [[noreturn]] static void refuse() { throw std::invalid_argument("refused"); }

    std::string bytesAt(std::size_t at, std::uint64_t count) const
    {
        if (at > objects.size() || count > objects.size() - at)
            refuse();
        return objects.substr(at, count);
    }

    std::string textOf16(const std::string& units) const
    {
        std::u32string characters;
        for (std::size_t at = 0; at < units.size(); at += 2) {
            const auto unit = static_cast<char32_t>(numberAt(units, at, 2));
            const bool isLow = unit >= 0xDC00 && unit <= 0xDFFF;
            const bool isAfterHigh = !characters.empty() && characters.back() >= 0xD800 && characters.back() <= 0xDBFF;
            if (isLow != isAfterHigh)
                refuse();
            if (isLow)
                characters.back() = 0x10000 + (characters.back() - 0xD800) * 0x400 + (unit - 0xDC00);
            else
                characters.push_back(unit);
        }
        if (!characters.empty() && characters.back() >= 0xD800 && characters.back() <= 0xDBFF)
            refuse();
        std::string text;
        for (const char32_t character : characters) {
            const auto put = [&](char32_t byte) {
                text.push_back(static_cast<char>(byte));
            };
            if (character < 0x80) {
                put(character);
                continue;
            }
            const int following = character < 0x800 ? 1 : character < 0x10000 ? 2 : 3;
            constexpr char32_t leads[] = { 0, 0xC0, 0xE0, 0xF0 };
            put(leads[following] + character / (char32_t { 1 } << 6 * following));
            for (int i = following - 1; i >= 0; --i)
                put(0x80 + character / (char32_t { 1 } << 6 * i) % 64);
        }
        return text;
    }

    std::string textAt(std::uint64_t number) const
    {
        std::size_t at = offsets.at(number);
        const unsigned marker = static_cast<unsigned char>(objects.at(at));
        const std::uint64_t count = countAt(at);
        if (marker / 16 == 6)
            return textOf16(bytesAt(at, count > objects.size() ? count : 2 * count));
        std::string text = bytesAt(at, count);
        for (const char character : text) {
            if (static_cast<unsigned char>(character) > 127)
                refuse();
        }
        return marker / 16 == 5 ? text : (refuse(), text);
    }

    /// Moves to what is counted.
    std::uint64_t countAt(std::size_t& at) const
    {
        const unsigned low = static_cast<unsigned char>(objects.at(at++)) % 16;
        if (low != 15)
            return low;
        const unsigned marker = static_cast<unsigned char>(objects.at(at++));
        if (marker < 0x10 || marker > 0x13)
            refuse();
        const std::size_t width = std::size_t { 1 } << (marker - 0x10);
        const std::uint64_t count = numberAt(objects, at, width);
        at += width;
        return count;
    }

    std::vector<std::uint64_t> referencesAt(std::size_t at, std::uint64_t count) const
    {
        if (count > objects.size())
            refuse();
        std::vector<std::uint64_t> references;
        for (std::uint64_t i = 0; i < count; ++i)
            references.push_back(numberAt(objects, at + i * referenceWidth, referenceWidth));
        return references;
    }

    static std::string signedMeaning(std::uint64_t bits)
    {
        const bool isNegative = bits >> 63 != 0;
        return meaningOfInteger(isNegative, isNegative ? 0 - bits : bits);
    }

    std::string meaningAt(std::uint64_t number, std::size_t depth) const
    {
        std::size_t at = offsets.at(number);
        const unsigned marker = static_cast<unsigned char>(objects.at(at));
        switch (marker) {
        case 0x08:
        case 0x09:
            return meaningOfBoolean(marker == 0x09);
        case 0x10:
            return meaningOfInteger(false, numberAt(objects, at + 1, 1));
        case 0x11:
            return meaningOfInteger(false, numberAt(objects, at + 1, 2));
        case 0x12:
            return meaningOfInteger(false, numberAt(objects, at + 1, 4));
        case 0x13:
            return signedMeaning(numberAt(objects, at + 1, 8));
        case 0x14:
            if (numberAt(objects, at + 1, 8) != 0)
                refuse();
            return meaningOfInteger(false, numberAt(objects, at + 9, 8));
        case 0x22: {
            const auto bits = static_cast<std::uint32_t>(numberAt(objects, at + 1, 4));
            return meaningOfDouble('r', std::bit_cast<std::uint64_t>(static_cast<double>(std::bit_cast<float>(bits))));
        }
        case 0x23:
            return meaningOfDouble('r', numberAt(objects, at + 1, 8));
        case 0x33:
            return meaningOfDouble('t', numberAt(objects, at + 1, 8));
        case 0x80:
        case 0x81:
        case 0x82:
        case 0x83:
            return "u" + std::to_string(numberAt(objects, at + 1, marker - 0x80 + 1));
        default:
            break;
        }
        if (marker / 16 == 4) {
            const std::uint64_t count = countAt(at);
            return meaningOfBytes('d', bytesAt(at, count));
        }
        if (marker / 16 == 5 || marker / 16 == 6)
            return meaningOfBytes('s', textAt(number));
        if ((marker / 16 != 0xA && marker / 16 != 0xD) || depth == deepestNesting)
            refuse();
        const std::uint64_t count = countAt(at);
        if (marker / 16 == 0xA) {
            std::vector<std::string> elements;
            for (const std::uint64_t element : referencesAt(at, count))
                elements.push_back(meaningAt(element, depth + 1));
            return meaningOfArray(elements);
        }
        const auto keys = referencesAt(at, count);
        const auto values = referencesAt(at + count * referenceWidth, count);
        std::vector<std::pair<std::string, std::string>> entries;
        for (std::size_t i = 0; i < count; ++i)
            entries.emplace_back(textAt(keys[i]), meaningAt(values[i], depth + 1));
        return meaningOfDictionary(entries);
    }
};

} // namespace

std::optional<std::string> meaningOfBinary(const std::string& bytes)
{
    constexpr std::size_t headerBytes = 8, trailerBytes = 32;
    if (bytes.size() < headerBytes + trailerBytes || bytes.substr(0, headerBytes) != "bplist00")
        return std::nullopt;
    try {
        const std::size_t trailer = bytes.size() - trailerBytes;
        const std::size_t offsetWidth = numberAt(bytes, trailer + 6, 1);
        PlainBinaryReader reader;
        reader.referenceWidth = numberAt(bytes, trailer + 7, 1);
        const std::uint64_t count = numberAt(bytes, trailer + 8, 8);
        const std::uint64_t root = numberAt(bytes, trailer + 16, 8);
        const std::uint64_t table = numberAt(bytes, trailer + 24, 8);
        if (table > trailer || count > bytes.size() || offsetWidth > 8 || table + count * offsetWidth != trailer)
            return std::nullopt;
        if (reader.referenceWidth < 1 || reader.referenceWidth > 8)
            return std::nullopt;
        reader.objects = bytes.substr(0, table);
        for (std::uint64_t i = 0; i < count; ++i)
            reader.offsets.push_back(numberAt(bytes, table + i * offsetWidth, offsetWidth));
        for (std::uint64_t& offset : reader.offsets) {
            // Nothing begins within the mark. An object that nobody refers to may say anything.
            if (offset < headerBytes)
                offset = bytes.size();
        }
        return reader.meaningAt(root, 0);
    } catch (const std::logic_error&) {
        return std::nullopt;
    }
}

std::string meaningOf(const Value& value)
{
    if (const auto* boolean = std::get_if<bool>(&value.content))
        return meaningOfBoolean(*boolean);
    if (const auto* integer = std::get_if<std::int64_t>(&value.content))
        return PlainBinaryReader::signedMeaning(static_cast<std::uint64_t>(*integer));
    if (const auto* integer = std::get_if<std::uint64_t>(&value.content))
        return meaningOfInteger(false, *integer);
    if (const auto* real = std::get_if<double>(&value.content))
        return meaningOfDouble('r', std::bit_cast<std::uint64_t>(*real));
    if (const auto* text = std::get_if<std::string>(&value.content))
        return meaningOfBytes('s', *text);
    if (const auto* data = std::get_if<Data>(&value.content))
        return meaningOfBytes('d', data->bytes);
    if (const auto* date = std::get_if<Date>(&value.content))
        return meaningOfDouble('t', std::bit_cast<std::uint64_t>(date->seconds));
    if (const auto* uid = std::get_if<Uid>(&value.content))
        return "u" + std::to_string(uid->number);
    if (const auto* array = std::get_if<Array>(&value.content)) {
        std::vector<std::string> elements;
        for (const Value& element : *array)
            elements.push_back(meaningOf(element));
        return meaningOfArray(elements);
    }
    std::vector<std::pair<std::string, std::string>> entries;
    for (const Entry& entry : std::get<Dictionary>(value.content))
        entries.emplace_back(entry.key, meaningOf(entry.value));
    return meaningOfDictionary(entries);
}

} // namespace panotra::preferences::testing
