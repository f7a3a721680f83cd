/// What may not be shown becomes an escape.
#include "simulator/text/Printable.h"

#include "simulator/text/Utf8.h"

#include <array>
#include <cstdio>

namespace panotra {

namespace {

unsigned unsignedByte(char byte)
{
    return static_cast<unsigned char>(byte);
}

/// Controls below U+0020 and from U+007F to U+009F, and the separators of lines and paragraphs.
bool isControl(std::string_view character)
{
    const unsigned first = unsignedByte(character[0]);
    if (character.size() == 1)
        return first < 0x20 || first == 0x7F;
    if (character.size() == 2)
        return first == 0xC2 && unsignedByte(character[1]) < 0xA0;
    return character == "\xE2\x80\xA8" || character == "\xE2\x80\xA9";
}

std::string formatted(const char* format, unsigned number)
{
    std::array<char, 16> text {};
    std::snprintf(text.data(), text.size(), format, number);
    return text.data();
}

/// The text with each of its characters, and each byte that is part of none, put through `show`.
template <typename Show> std::string shown(std::string_view text, Show show)
{
    std::string result;
    while (!text.empty()) {
        const std::size_t length = lengthOfCharacter(text);
        result += show(text.substr(0, length == 0 ? 1 : length), length != 0);
        text.remove_prefix(length == 0 ? 1 : length);
    }
    return result;
}

std::string escapedBytes(std::string_view bytes)
{
    std::string escaped;
    for (const char byte : bytes)
        escaped += formatted("\\x%02x", unsignedByte(byte));
    return escaped;
}

/// A control as JSON has it.
std::string escapedControl(std::string_view control)
{
    struct Short {
        char control;
        const char* escape;
    };
    constexpr std::array shorts { Short { '\b', "\\b" }, Short { '\f', "\\f" }, Short { '\n', "\\n" },
        Short { '\r', "\\r" }, Short { '\t', "\\t" } };
    for (const Short& each : shorts) {
        if (control[0] == each.control)
            return each.escape;
    }
    // U+2028 and U+2029 are the only ones of three bytes; of the others the last byte is the number.
    return formatted(
        "\\u%04x", control.size() == 3 ? 0x2000 | (unsignedByte(control[2]) & 0x3F) : unsignedByte(control.back()));
}

} // namespace

std::string printable(std::string_view text)
{
    return shown(text, [](std::string_view character, bool isCharacter) {
        return isCharacter && !isControl(character) ? std::string(character) : escapedBytes(character);
    });
}

std::string inQuotes(std::string_view text)
{
    return '"' + shown(text, [](std::string_view character, bool isCharacter) -> std::string {
        if (!isCharacter)
            return "\xEF\xBF\xBD"; // U+FFFD, the character that stands for none
        if (character == "\"" || character == "\\")
            return '\\' + std::string(character);
        return isControl(character) ? escapedControl(character) : std::string(character);
    }) + '"';
}

} // namespace panotra
