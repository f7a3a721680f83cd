/// Numbers of the scenario language, in no country's spelling but the language's own.
#pragma once

#include <charconv>
#include <concepts>
#include <optional>
#include <string_view>

namespace panotra::sim {

/// `[+-]?(D+(.D*)?|.D+)([eE][+-]?D+)?`, rounded to the nearest value that the type can hold. None if it is
/// anything else or not finite in that type; too small a number is zero.
std::optional<double> parseDouble(std::string_view text);
std::optional<float> parseFloat(std::string_view text);

/// Whether `text` is `[+-]?D+`.
bool isInteger(std::string_view text);

/// `[+-]?D+`. None if it is anything else or out of the type's range; -0 is 0.
template <std::integral Integer> std::optional<Integer> parseInteger(std::string_view text)
{
    if (!isInteger(text))
        return std::nullopt;
    if (text.front() == '+')
        text.remove_prefix(1);
    Integer value {};
    if (text.find_first_not_of("-0") == text.npos)
        return value;
    const auto end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, value);
    if (error != std::errc() || stop != end)
        return std::nullopt;
    return value;
}

} // namespace panotra::sim
