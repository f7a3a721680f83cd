/// Text of 16-bit units, the higher byte first, as binary property lists hold it.
#include "simulator/preferences/Utf16.h"

#include <cstddef>
#include <cstdint>

namespace panotra::preferences {

namespace {

constexpr std::uint32_t firstHighSurrogate = 0xD800;
constexpr std::uint32_t firstLowSurrogate = 0xDC00;
constexpr std::uint32_t afterSurrogates = 0xE000;
constexpr std::uint32_t firstWithPair = 0x10000;

std::uint32_t bitsOf(char byte)
{
    return static_cast<unsigned char>(byte);
}

/// Answers the place behind what it wrote, 1 to 4 bytes.
char* writeUtf8(char* place, std::uint32_t character)
{
    const auto write = [&](std::uint32_t byte) {
        *place++ = static_cast<char>(byte);
    };
    const auto writeFollowing = [&](int shift) {
        write(0x80 | (character >> shift & 0x3F));
    };
    if (character < 0x80) {
        write(character);
    } else if (character < 0x800) {
        write(0xC0 | character >> 6);
        writeFollowing(0);
    } else if (character < firstWithPair) {
        write(0xE0 | character >> 12);
        writeFollowing(6);
        writeFollowing(0);
    } else {
        write(0xF0 | character >> 18);
        writeFollowing(12);
        writeFollowing(6);
        writeFollowing(0);
    }
    return place;
}

void appendUnit(std::string& bytes, std::uint32_t unit)
{
    bytes.push_back(static_cast<char>(unit >> 8 & 0xFF));
    bytes.push_back(static_cast<char>(unit & 0xFF));
}

} // namespace

bool fromUtf16(std::string_view bytes, std::string& utf8)
{
    // Room for the most that it can be, three bytes a unit: a file may ask for one long text again and again, and to
    // append byte by byte would make it dear.
    utf8.resize(bytes.size() / 2 * 3);
    char* end = utf8.data();
    for (std::size_t at = 0; at + 1 < bytes.size(); at += 2) {
        const auto unit = [&](std::size_t place) {
            return bitsOf(bytes[place]) << 8 | bitsOf(bytes[place + 1]);
        };
        std::uint32_t character = unit(at);
        if (character >= firstLowSurrogate && character < afterSurrogates)
            return false;
        if (character >= firstHighSurrogate && character < firstLowSurrogate) {
            at += 2;
            const std::uint32_t low = at + 1 < bytes.size() ? unit(at) : 0;
            if (low < firstLowSurrogate || low >= afterSurrogates)
                return false;
            character = firstWithPair + ((character - firstHighSurrogate) << 10 | (low - firstLowSurrogate));
        }
        end = writeUtf8(end, character);
    }
    utf8.resize(static_cast<std::size_t>(end - utf8.data()));
    return true;
}

std::string toUtf16(std::string_view utf8)
{
    std::string bytes;
    for (std::size_t at = 0; at < utf8.size();) {
        const std::uint32_t first = bitsOf(utf8[at]);
        const std::size_t length = first < 0x80 ? 1 : first < 0xE0 ? 2 : first < 0xF0 ? 3 : 4;
        std::uint32_t character = length == 1 ? first : first & (0xFFu >> (length + 1));
        for (std::size_t i = 1; i < length && at + i < utf8.size(); ++i)
            character = character << 6 | (bitsOf(utf8[at + i]) & 0x3F);
        at += length;
        if (character < firstWithPair) {
            appendUnit(bytes, character);
        } else {
            appendUnit(bytes, firstHighSurrogate + ((character - firstWithPair) >> 10));
            appendUnit(bytes, firstLowSurrogate + ((character - firstWithPair) & 0x3FF));
        }
    }
    return bytes;
}

} // namespace panotra::preferences
