/// Text from outside as a person is shown it: on one line, and nothing in it drives a terminal.
#include "simulator/preferences/Printable.h"

#include "simulator/preferences/Settings.h"
#include "simulator/preferences/Utf8.h"

#include <array>
#include <cstdio>

namespace panotra::preferences {

namespace {

unsigned unsignedByte(char byte)
{
    return static_cast<unsigned char>(byte);
}

/// The length of the character at the beginning of the text; zero if that is none.
std::size_t lengthOfCharacter(std::string_view text)
{
    constexpr std::size_t longest = 4;
    for (std::size_t length = 1; length <= longest && length <= text.size(); ++length) {
        if (isUtf8(text.substr(0, length)))
            return length;
    }
    return 0;
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

/// The text with every byte or character that may not be shown put through `escape`.
template <typename Escape> std::string shown(std::string_view text, Escape escape)
{
    std::string result;
    while (!text.empty()) {
        const std::size_t length = lengthOfCharacter(text);
        const std::string_view character = text.substr(0, length == 0 ? 1 : length);
        if (length == 0 || isControl(character))
            result += escape(character);
        else
            result += character;
        text.remove_prefix(character.size());
    }
    return result;
}

std::string formatted(const char* format, unsigned number)
{
    std::array<char, 16> text {};
    std::snprintf(text.data(), text.size(), format, number);
    return text.data();
}

} // namespace

std::string printable(std::string_view text)
{
    return shown(text, [](std::string_view character) {
        std::string escaped;
        for (const char byte : character)
            escaped += formatted("\\x%02x", unsignedByte(byte));
        return escaped;
    });
}

std::string inQuotes(std::string_view text)
{
    constexpr int onOneLine = -1;
    const std::string quoted = Json(text).dump(onOneLine, ' ', false, Json::error_handler_t::replace);
    // What is left of controls is beyond ASCII, which JSON lets pass.
    return shown(quoted, [](std::string_view character) -> std::string {
        if (character.size() == 3)
            return formatted("\\u%04x", 0x2000 | (unsignedByte(character[2]) & 0x3F));
        return formatted("\\u%04x", unsignedByte(character.back()));
    });
}

} // namespace panotra::preferences
