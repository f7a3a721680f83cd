/// The C library knows the widths, of characters in its own spelling.
#include "simulator/text/Columns.h"

#include "simulator/text/Utf8.h"

#include <algorithm>
#include <clocale>
#include <cwchar>

namespace panotra {

namespace {

/// The number of a well-formed character.
wchar_t codePointOf(std::string_view character)
{
    const auto first = static_cast<unsigned char>(character[0]);
    if (character.size() == 1)
        return static_cast<wchar_t>(first);
    // The more bytes follow, the fewer bits of the number stand in the first.
    auto number = static_cast<wchar_t>(first & (0xFFU >> (character.size() + 1)));
    for (const char byte : character.substr(1))
        number = static_cast<wchar_t>(number * 64 + (static_cast<unsigned char>(byte) & 0x3F));
    return number;
}

/// Widths as they are wherever text is UTF-8, whatever the person's own locale.
class Widths {
public:
    Widths()
        : m_locale(newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr))
    {
    }
    Widths(const Widths&) = delete;
    Widths& operator=(const Widths&) = delete;
    ~Widths()
    {
        if (m_locale != nullptr)
            freelocale(m_locale);
    }

    std::size_t of(std::string_view character) const
    {
        if (character.size() == 1 || m_locale == nullptr)
            return 1;
        const auto before = uselocale(m_locale);
        const int width = wcwidth(codePointOf(character));
        uselocale(before);
        return width < 0 ? 1 : static_cast<std::size_t>(width);
    }

private:
    locale_t m_locale;
};

/// Calls `take(bytes, columns)` for each character until it answers no.
template <typename Take> void eachCharacter(std::string_view text, Take take)
{
    static const Widths widths;
    while (!text.empty()) {
        const std::size_t length = std::max<std::size_t>(1, lengthOfCharacter(text));
        if (!take(length, widths.of(text.substr(0, length))))
            return;
        text.remove_prefix(length);
    }
}

} // namespace

std::size_t columnsOf(std::string_view text)
{
    std::size_t columns = 0;
    eachCharacter(text, [&columns](std::size_t, std::size_t width) {
        columns += width;
        return true;
    });
    return columns;
}

std::size_t bytesThatFit(std::string_view text, std::size_t columns)
{
    std::size_t bytes = 0;
    eachCharacter(text, [&](std::size_t length, std::size_t width) {
        if (width > columns && bytes != 0)
            return false;
        bytes += length;
        columns -= std::min(columns, width);
        return true;
    });
    return bytes;
}

} // namespace panotra
