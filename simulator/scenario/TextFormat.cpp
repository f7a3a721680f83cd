/// Short spellings, locale-independent.
#include "simulator/scenario/TextFormat.h"

#include "simulator/text/Printable.h"

#include <nlohmann/json.hpp>

#include <array>
#include <charconv>

namespace panotra::sim {

namespace {

std::string withDigits(double number, int significantDigits)
{
    std::array<char, 32> text {};
    const auto end = std::to_chars(text.begin(), text.end(), number, std::chars_format::general, significantDigits).ptr;
    return { text.begin(), end };
}

} // namespace

std::string shortNumber(double number)
{
    constexpr int significantDigits = 6;
    return withDigits(number, significantDigits);
}

std::string percent(double level)
{
    constexpr int significantDigits = 4;
    return withDigits(level * 100, significantDigits) + '%';
}

std::string percent(const Json& level)
{
    return level.is_number() ? percent(level.get<double>()) : shortValue(level);
}

std::string shortValue(const Json& value)
{
    if (value.is_string())
        return printable(value.get_ref<const std::string&>());
    if (value.is_boolean())
        return value.get<bool>() ? "yes" : "no";
    if (value.is_null())
        return "nil";
    if (value.is_number_float())
        return shortNumber(value.get<double>());
    if (!value.is_array())
        return value.dump();
    std::string list;
    for (const auto& element : value)
        list += (list.empty() ? "" : ", ") + shortValue(element);
    return '(' + list + ')';
}

std::string wrapped(const std::string& start, const std::vector<std::string>& items, std::size_t indent)
{
    constexpr std::size_t lineWidth = 110;
    auto text = start;
    auto column = indent + start.size();
    for (const auto& item : items) {
        if (&item != &items.front()) {
            const bool fits = column + 2 + item.size() <= lineWidth;
            text += fits ? ", " : ",\n" + std::string(indent, ' ');
            column = fits ? column + 2 : indent;
        }
        text += item;
        column += item.size();
    }
    return text;
}

} // namespace panotra::sim
