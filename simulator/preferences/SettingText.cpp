/// Settings as people write them: a type and a value in words.
#include "simulator/preferences/SettingText.h"

#include "simulator/preferences/ElementText.h"
#include "simulator/text/Utf8.h"

#include <cmath>

namespace panotra::preferences {

namespace {

std::optional<Json> readSettingInteger(std::string_view text)
{
    const bool isDecimal = text.find_first_not_of("+-0123456789") == text.npos;
    const auto integer = isDecimal ? integerOf(text) : std::nullopt;
    if (!integer)
        return std::nullopt;
    return std::visit([](auto number) { return Json(number); }, *integer);
}

std::optional<Json> readSettingReal(std::string_view text)
{
    const bool hasBlanks = text.find_first_of(" \t\r\n") != text.npos;
    const auto real = hasBlanks ? std::nullopt : realOf(text);
    return real ? std::optional<Json>(*real) : std::nullopt;
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
    { "int", readSettingInteger, "a decimal integer of 64 bits" },
    { "float", readSettingReal, "a number, inf, -inf or nan" },
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
        return std::isnan(value.get<double>()) ? "nan" : std::to_string(value.get<double>());
    return value.is_null() ? std::string() : value.dump();
}

} // namespace panotra::preferences
