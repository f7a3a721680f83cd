/// A value of a property list, of any kind that a file can hold.
#include "simulator/preferences/PropertyListValue.h"

#include "simulator/preferences/Settings.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <cassert>
#include <limits>
#include <numeric>

namespace panotra::preferences {

void mergeEqualKeys(Dictionary& dictionary)
{
    // By key, and those of one key in their order.
    std::vector<std::size_t> places(dictionary.size());
    std::iota(places.begin(), places.end(), std::size_t { 0 });
    std::ranges::sort(places, [&](std::size_t one, std::size_t other) {
        const int order = dictionary[one].key.compare(dictionary[other].key);
        return order != 0 ? order < 0 : one < other;
    });
    std::vector<bool> isSpare(dictionary.size());
    for (std::size_t i = 0; i < places.size();) {
        const std::size_t first = places[i];
        std::size_t last = first;
        for (++i; i < places.size() && dictionary[places[i]].key == dictionary[first].key; ++i) {
            last = places[i];
            isSpare[last] = true;
        }
        if (last != first)
            dictionary[first].value = std::move(dictionary[last].value);
    }
    Dictionary merged;
    for (std::size_t i = 0; i < dictionary.size(); ++i) {
        if (!isSpare[i])
            merged.push_back(std::move(dictionary[i]));
    }
    dictionary = std::move(merged);
}

Json settingOf(const Value& value)
{
    if (const auto* boolean = std::get_if<bool>(&value.content))
        return *boolean;
    if (const auto* integer = std::get_if<std::int64_t>(&value.content))
        return *integer;
    if (const auto* integer = std::get_if<std::uint64_t>(&value.content))
        return *integer;
    if (const auto* real = std::get_if<double>(&value.content))
        return *real;
    if (const auto* text = std::get_if<std::string>(&value.content))
        return *text;
    return nullptr;
}

Value valueOfSetting(const Json& setting)
{
    assert(isStorable(setting));
    if (setting.is_boolean())
        return { setting.get<bool>() };
    if (setting.is_string())
        return { setting.get<std::string>() };
    if (setting.is_number_float())
        return { setting.get<double>() };
    constexpr auto largestSigned = std::uint64_t { std::numeric_limits<std::int64_t>::max() };
    if (setting.is_number_unsigned() && setting.get<std::uint64_t>() > largestSigned)
        return { setting.get<std::uint64_t>() };
    return { setting.get<std::int64_t>() };
}

std::optional<std::string> Extent::addValues(std::size_t count)
{
    if (count > mostValues - m_values)
        return "holds more than " + std::to_string(mostValues) + " values";
    m_values += count;
    return std::nullopt;
}

std::optional<std::string> Extent::addText(std::size_t bytes)
{
    if (bytes > mostTextBytes - m_textBytes)
        return "holds more than " + std::to_string(mostTextBytes >> 20) + " MiB of text";
    m_textBytes += bytes;
    return std::nullopt;
}

std::optional<std::string> Extent::add(const Value& value)
{
    if (auto objection = addValues(1))
        return objection;
    if (const auto* text = std::get_if<std::string>(&value.content))
        return addText(text->size());
    if (const auto* data = std::get_if<Data>(&value.content))
        return addText(data->bytes.size());
    if (const auto* array = std::get_if<Array>(&value.content)) {
        for (const Value& element : *array) {
            if (auto objection = add(element))
                return objection;
        }
    }
    if (const auto* dictionary = std::get_if<Dictionary>(&value.content)) {
        for (const Entry& entry : *dictionary) {
            auto objection = addText(entry.key.size());
            if (!objection)
                objection = add(entry.value);
            if (objection)
                return objection;
        }
    }
    return std::nullopt;
}

} // namespace panotra::preferences
