/// The guard for XML property lists: nesting, and the texts of values that have a format of their own.
#include "simulator/preferences/PropertyListGuard.h"
#include "simulator/preferences/Utf8.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <cstdlib>

namespace panotra::preferences {

namespace {

constexpr std::string_view blanks = " \t\r\n";

std::string_view trimmed(std::string_view text)
{
    const auto first = text.find_first_not_of(blanks);
    if (first == text.npos)
        return {};
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

/// Between the lowest signed and the highest unsigned integer of 64 bits; decimal, or hexadecimal after 0x.
bool isInteger(std::string_view text)
{
    const bool isNegative = text.starts_with('-');
    if (isNegative || text.starts_with('+'))
        text.remove_prefix(1);
    const bool isHexadecimal = text.starts_with("0x") || text.starts_with("0X");
    if (isHexadecimal)
        text.remove_prefix(2);
    std::uint64_t magnitude = 0;
    const auto end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, magnitude, isHexadecimal ? 16 : 10);
    constexpr auto lowest = std::uint64_t { 1 } << 63;
    return error == std::errc() && stop == end && (!isNegative || magnitude <= lowest);
}

bool isReal(std::string_view text)
{
    const std::string terminated(text);
    char* stop = nullptr;
    std::strtod(terminated.c_str(), &stop);
    return !text.empty() && stop == terminated.c_str() + terminated.size();
}

bool isDate(std::string_view text)
{
    constexpr std::string_view shape = "0000-00-00T00:00:00Z";
    return std::ranges::equal(text, shape, [](char actual, char expected) {
        return expected == '0' ? actual >= '0' && actual <= '9' : actual == expected;
    });
}

bool isBase64(std::string_view text)
{
    constexpr std::string_view alphabet = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/= \t\r\n";
    return text.find_first_not_of(alphabet) == text.npos;
}

struct Format {
    std::string_view element;
    bool (*fits)(std::string_view text);
};

constexpr Format formats[] = {
    { "integer", isInteger },
    { "real", isReal },
    { "date", isDate },
    { "data", isBase64 },
};

struct Section {
    std::string_view begin;
    std::string_view end;
};

/// What may hold angle brackets that are no tags.
constexpr Section sections[] = {
    { "<!--", "-->" },
    { "<![CDATA[", "]]>" },
    { "<?", "?>" },
};

/// One tag; an incomplete one has an empty name.
struct Tag {
    std::string_view name;
    bool closes = false;
    bool isEmptyElement = false;
};

class Scanner {
public:
    explicit Scanner(std::string_view xml)
        : m_rest(xml)
    {
    }

    std::optional<std::string> objection()
    {
        std::size_t depth = 0;
        while (toNextTag()) {
            const Tag tag = takeTag();
            if (tag.name.empty())
                return "is no property list";
            if (tag.name == "array" || tag.name == "dict") {
                if (tag.closes)
                    depth -= depth > 0;
                else if (!tag.isEmptyElement && ++depth > deepestNesting)
                    return "nests its values too deeply";
            }
            if (!tag.closes && !fitsFormat(tag))
                return "holds the " + std::string(tag.name) + " \"" + std::string(textHere().substr(0, 40))
                    + "\", which cannot be kept as it is";
        }
        return std::nullopt;
    }

private:
    /// Goes to the next angle bracket that begins a tag.
    bool toNextTag()
    {
        for (;;) {
            m_rest.remove_prefix(std::min(m_rest.find('<'), m_rest.size()));
            if (m_rest.empty())
                return false;
            const auto section = std::ranges::find_if(
                sections, [this](const Section& candidate) { return m_rest.starts_with(candidate.begin); });
            if (section != std::end(sections))
                skipPast(section->end);
            else if (m_rest.starts_with("<!"))
                skipDeclaration();
            else
                return true;
        }
    }

    void skipPast(std::string_view mark)
    {
        const auto at = m_rest.find(mark);
        m_rest.remove_prefix(at == m_rest.npos ? m_rest.size() : at + mark.size());
    }

    /// A document type, perhaps with declarations of its own in square brackets.
    void skipDeclaration()
    {
        const auto at = m_rest.find_first_of("[>");
        const bool hasOwnDeclarations = at != m_rest.npos && m_rest[at] == '[';
        skipPast(hasOwnDeclarations ? "]>" : ">");
    }

    Tag takeTag()
    {
        // An angle bracket in the value of an attribute does not end the tag.
        char quote = 0;
        std::size_t end = 1;
        for (; end < m_rest.size() && (quote != 0 || m_rest[end] != '>'); ++end) {
            const char character = m_rest[end];
            if (quote == 0 && (character == '"' || character == '\''))
                quote = character;
            else if (character == quote)
                quote = 0;
        }
        if (end == m_rest.size())
            return {};
        std::string_view inside = m_rest.substr(1, end - 1);
        m_rest.remove_prefix(end + 1);

        Tag tag;
        tag.closes = inside.starts_with('/');
        if (tag.closes)
            inside.remove_prefix(1);
        tag.isEmptyElement = inside.ends_with('/');
        tag.name = inside.substr(0, inside.find_first_of(" \t\r\n/"));
        return tag;
    }

    std::string_view textHere() const { return trimmed(m_rest.substr(0, m_rest.find('<'))); }

    bool fitsFormat(const Tag& tag) const
    {
        const auto format = std::ranges::find(formats, tag.name, &Format::element);
        return format == std::end(formats) || format->fits(tag.isEmptyElement ? "" : textHere());
    }

    std::string_view m_rest;
};

} // namespace

std::optional<std::string> objectionToXml(std::string_view xml)
{
    if (!isUtf8(xml))
        return "is no property list in UTF-8";
    return Scanner(xml).objection();
}

} // namespace panotra::preferences
