/// Settings as people write them: a type and a value in words.
#include "simulator/preferences/SettingText.h"

#include "simulator/preferences/Utf8.h"

#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <type_traits>

namespace panotra::preferences {

namespace {

/// Without infinities, nan and hexadecimal: only signs, digits, a point and an exponent.
template <typename Number> std::optional<Json> readNumber(std::string_view text)
{
    const bool hasPlus = text.starts_with('+');
    if (hasPlus)
        text.remove_prefix(1);
    if (text.find_first_not_of("+-.0123456789eE") != text.npos || (hasPlus && text.starts_with('-')))
        return std::nullopt;
    Number number = 0;
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number);
    if (stop != end || error == std::errc::invalid_argument)
        return std::nullopt;
    if (error == std::errc())
        return number;
    // Out of range: of reals, only what is too large; what is too small is as good as zero.
    const double nearest = std::strtod(std::string(text).c_str(), nullptr);
    if (std::is_floating_point_v<Number> && std::isfinite(nearest))
        return nearest;
    return std::nullopt;
}

std::optional<Json> readBoolean(std::string_view text)
{
    if (text == "yes" || text == "no")
        return text == "yes";
    return std::nullopt;
}

std::optional<Json> readString(std::string_view text)
{
    if (isUtf8(text))
        return std::string(text);
    return std::nullopt;
}

struct Type {
    std::string_view name;
    std::optional<Json> (*read)(std::string_view text);
    const char* expected;
};

constexpr Type types[] = {
    { "int", readNumber<std::int64_t>, "an integer of 64 bits" },
    { "float", readNumber<double>, "a number" },
    { "bool", readBoolean, "yes or no" },
    { "string", readString, "text in UTF-8" },
};

} // namespace

ReadSetting readSetting(std::string_view type, std::string_view text)
{
    for (const Type& known : types) {
        if (known.name == type)
            return { known.read(text), known.expected };
    }
    return { std::nullopt, "one of the types int, float, bool and string" };
}

std::string_view typeOf(const Json& value)
{
    if (value.is_number_float())
        return "float";
    if (value.is_number())
        return "int";
    if (value.is_boolean())
        return "bool";
    return value.is_string() ? "string" : "other";
}

std::string textOf(const Json& value)
{
    if (value.is_boolean())
        return value.get<bool>() ? "yes" : "no";
    if (value.is_string())
        return value.get<std::string>();
    if (value.is_number_float() && !std::isfinite(value.get<double>()))
        return std::to_string(value.get<double>());
    return value.is_null() ? std::string() : value.dump();
}

} // namespace panotra::preferences
