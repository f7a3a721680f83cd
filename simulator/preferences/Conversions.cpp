/// The platform's conversions of a stored value to the type that a program asks for.
#include "simulator/preferences/Conversions.h"

#include "facts/WrappedInteger.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <charconv>
#include <cstdlib>
#include <string_view>

namespace panotra::preferences {

namespace {

constexpr std::string_view digits = "0123456789";

/// Takes the first characters off that are in `set`, at most `most` of them; answers how many they were.
std::size_t skip(std::string_view& text, std::string_view set, std::size_t most = std::string_view::npos)
{
    const std::size_t count = std::min({ text.find_first_not_of(set), text.size(), most });
    text.remove_prefix(count);
    return count;
}

std::string_view withoutLeadingSpace(std::string_view text)
{
    skip(text, " \t\n\v\f\r");
    return text;
}

bool isTrue(std::string_view text)
{
    text = withoutLeadingSpace(text);
    if (text.find_first_of("YyTt") == 0)
        return true;
    skip(text, "+-", 1);
    skip(text, "0");
    return text.find_first_of("123456789") == 0;
}

/// The number with which the text begins: an integer where it has neither decimals nor exponent and fits.
Json leadingNumber(std::string_view text)
{
    text = withoutLeadingSpace(text);
    std::string_view rest = text;
    skip(rest, "+-", 1);
    std::size_t digitCount = skip(rest, digits);
    bool isInteger = true;
    if (rest.starts_with('.')) {
        isInteger = false;
        rest.remove_prefix(1);
        digitCount += skip(rest, digits);
    }
    if (digitCount == 0)
        return 0;
    std::string_view exponent = rest;
    if (skip(exponent, "eE", 1) != 0) {
        skip(exponent, "+-", 1);
        if (skip(exponent, digits) != 0) {
            isInteger = false;
            rest = exponent;
        }
    }
    const std::string number(text.substr(0, text.size() - rest.size()));
    if (isInteger) {
        const char* first = number.c_str() + number.starts_with('+');
        std::int64_t integer = 0;
        if (std::from_chars(first, number.c_str() + number.size(), integer).ec == std::errc())
            return integer;
    }
    return std::strtod(number.c_str(), nullptr);
}

Json numeric(const Json& value)
{
    if (value.is_string())
        return leadingNumber(value.get_ref<const std::string&>());
    if (value.is_boolean())
        return value.get<bool>() ? 1 : 0;
    return value.is_number() ? value : Json(0);
}

} // namespace

bool booleanOf(const Json& value)
{
    if (value.is_string())
        return isTrue(value.get_ref<const std::string&>());
    return numberOf(value) != 0;
}

double numberOf(const Json& value)
{
    return numeric(value).get<double>();
}

std::uint16_t unsignedShortOf(const Json& value)
{
    const Json number = numeric(value);
    if (number.is_number_unsigned())
        return static_cast<std::uint16_t>(number.get<std::uint64_t>());
    if (number.is_number_integer())
        return static_cast<std::uint16_t>(number.get<std::int64_t>());
    return static_cast<std::uint16_t>(wrappedInteger(number.get<double>()));
}

} // namespace panotra::preferences
