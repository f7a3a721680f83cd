/// UTF-8 checked by the byte.
#include "simulator/text/Utf8.h"

#include <array>

namespace panotra {

namespace {

/// The well-formed sequences by their first byte. The second byte's range is what keeps out overlong forms,
/// surrogates and code points past the last; all later bytes are 0x80 to 0xBF.
struct Utf8Sequence {
    unsigned char firstLow, firstHigh;
    std::size_t length;
    unsigned char secondLow, secondHigh;
};

constexpr std::array utf8Sequences {
    Utf8Sequence { 0x00, 0x7F, 1, 0x80, 0xBF },
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

} // namespace

std::size_t lengthOfCharacter(std::string_view text)
{
    for (const Utf8Sequence& sequence : utf8Sequences) {
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

std::optional<std::size_t> firstMalformedByte(std::string_view text)
{
    for (std::size_t position = 0; position < text.size();) {
        const std::size_t length = lengthOfCharacter(text.substr(position));
        if (length == 0)
            return position;
        position += length;
    }
    return std::nullopt;
}

} // namespace panotra
