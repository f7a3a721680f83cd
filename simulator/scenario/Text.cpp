/// UTF-8 checked by the byte, and control characters made visible.
#include "simulator/scenario/Text.h"

#include <array>
#include <cstdio>

namespace panotra::sim {

namespace {

/// The well-formed sequences by their first byte. The second byte's range is what keeps out overlong forms,
/// surrogates and code points past the last; all later bytes are 0x80 to 0xBF.
struct Utf8Sequence {
    unsigned char firstLow, firstHigh;
    std::size_t length;
    unsigned char secondLow, secondHigh;
};

constexpr std::array utf8Sequences {
    Utf8Sequence { 0x01, 0x7F, 1, 0x80, 0xBF },
    Utf8Sequence { 0xC2, 0xDF, 2, 0x80, 0xBF },
    Utf8Sequence { 0xE0, 0xE0, 3, 0xA0, 0xBF },
    Utf8Sequence { 0xE1, 0xEC, 3, 0x80, 0xBF },
    Utf8Sequence { 0xED, 0xED, 3, 0x80, 0x9F },
    Utf8Sequence { 0xEE, 0xEF, 3, 0x80, 0xBF },
    Utf8Sequence { 0xF0, 0xF0, 4, 0x90, 0xBF },
    Utf8Sequence { 0xF1, 0xF3, 4, 0x80, 0xBF },
    Utf8Sequence { 0xF4, 0xF4, 4, 0x80, 0x8F },
};

unsigned char byteAt(std::string_view text, std::size_t position)
{
    return static_cast<unsigned char>(text[position]);
}

/// The length of the well-formed sequence at the start of `text`, or 0.
std::size_t sequenceLength(std::string_view text)
{
    for (const auto& sequence : utf8Sequences) {
        if (byteAt(text, 0) < sequence.firstLow || byteAt(text, 0) > sequence.firstHigh)
            continue;
        if (text.size() < sequence.length)
            return 0;
        for (std::size_t position = 1; position < sequence.length; ++position) {
            const auto low = position == 1 ? sequence.secondLow : 0x80;
            const auto high = position == 1 ? sequence.secondHigh : 0xBF;
            if (byteAt(text, position) < low || byteAt(text, position) > high)
                return 0;
        }
        return sequence.length;
    }
    return 0;
}

} // namespace

std::optional<std::size_t> firstBadByte(std::string_view text)
{
    std::size_t position = 0;
    while (position < text.size()) {
        const auto length = sequenceLength(text.substr(position));
        if (length == 0)
            return position;
        position += length;
    }
    return std::nullopt;
}

std::string printable(std::string_view text)
{
    std::string result;
    for (std::size_t position = 0; position < text.size(); ++position) {
        const auto byte = byteAt(text, position);
        // U+0080 to U+009F are controls too: 0xC2 and a byte below 0xA0.
        const bool isSecondControl = byte == 0xC2 && position + 1 < text.size() && byteAt(text, position + 1) < 0xA0;
        if (byte >= 0x20 && byte != 0x7F && !isSecondControl) {
            result += text[position];
            continue;
        }
        std::array<char, 8> escape {};
        std::snprintf(escape.data(), escape.size(), "\\x%02x",
            static_cast<unsigned>(isSecondControl ? byteAt(text, ++position) : byte));
        result += escape.data();
    }
    return result;
}

std::string inQuotes(std::string_view text)
{
    return '"' + printable(text) + '"';
}

} // namespace panotra::sim
