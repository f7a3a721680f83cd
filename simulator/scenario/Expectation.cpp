/// Paths are walked greedily, values compared by the kind that was found.
#include "simulator/scenario/Expectation.h"

#include "simulator/scenario/NearestName.h"
#include "simulator/scenario/Numbers.h"
#include "simulator/text/Printable.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <tuple>
#include <utility>
#include <vector>

namespace panotra::sim {

namespace {

/// How far apart two numbers may be and still count as the same.
constexpr double tolerance = 1e-6;

/// Whether `key` is the first part of the path, up to a dot or its end.
bool startsWithKey(std::string_view rest, std::string_view key)
{
    return rest.starts_with(key) && (rest.size() == key.size() || rest[key.size()] == '.');
}

const Json* longestKeyThatFits(const Json& object, std::string_view rest, std::size_t& length)
{
    const Json* best = nullptr;
    for (const auto& [key, value] : object.items()) {
        if (startsWithKey(rest, key) && (best == nullptr || key.size() > length)) {
            best = &value;
            length = key.size();
        }
    }
    return best;
}

const Json* elementAt(const Json& list, std::string_view rest, std::size_t& length)
{
    const auto word = rest.substr(0, rest.find('.'));
    length = word.size();
    if (word.find_first_not_of("0123456789") != word.npos)
        return nullptr;
    const auto index = parseInteger<std::size_t>(word);
    return index && *index < list.size() ? &list[*index] : nullptr;
}

/// The first `count` parts of the path, or all of it if it has fewer.
std::string_view firstParts(std::string_view path, std::ptrdiff_t count)
{
    auto end = path.find('.');
    for (; count > 1 && end != path.npos; --count)
        end = path.find('.', end + 1);
    return path.substr(0, end);
}

/// A key of an object that the beginning of a path may stand for.
struct KeyMeant {
    std::string key;
    std::size_t length; ///< of what stands for it in the path
    std::size_t distance;
};

/// Those that are near, the nearest first, of equally near ones the longest, of equally long ones by their letters.
std::vector<KeyMeant> keysMeant(const Json& object, std::string_view rest)
{
    std::vector<KeyMeant> keys;
    for (const auto& [key, value] : object.items()) {
        const auto word = firstParts(rest, std::ranges::count(key, '.') + 1);
        if (const auto distance = misspelling(word, key))
            keys.push_back({ key, word.size(), *distance });
    }
    std::ranges::sort(
        keys, {}, [](const KeyMeant& meant) { return std::tuple(meant.distance, -std::ssize(meant.key), meant.key); });
    return keys;
}

} // namespace

const Json* valueAt(const Json& state, std::string_view path)
{
    const Json* value = &state;
    for (std::optional rest = path; rest;) {
        std::size_t length = 0;
        if (value->is_object())
            value = longestKeyThatFits(*value, *rest, length);
        else
            value = value->is_array() ? elementAt(*value, *rest, length) : nullptr;
        if (value == nullptr)
            return nullptr;
        rest = length == rest->size() ? std::nullopt : std::optional(rest->substr(length + 1));
    }
    return value;
}

std::optional<std::string> nearestPath(const Json& value, std::string_view path)
{
    std::vector<KeyMeant> keys;
    if (value.is_object()) {
        keys = keysMeant(value, path);
    } else if (value.is_array()) {
        if (std::size_t length = 0; elementAt(value, path, length) != nullptr)
            keys.push_back({ std::string(path.substr(0, length)), length, 0 });
    }
    for (const auto& [key, length, distance] : keys) {
        if (length == path.size())
            return key;
        std::size_t ignored = 0;
        const auto& below = value.is_object() ? value.at(key) : *elementAt(value, key, ignored);
        if (const auto rest = nearestPath(below, path.substr(length + 1)))
            return key + '.' + *rest;
    }
    return std::nullopt;
}

bool matches(const Json& found, const std::optional<std::string>& expected)
{
    if (!expected || found.is_null())
        return !expected && found.is_null();
    if (found.is_boolean())
        return *expected == (found.get<bool>() ? "yes" : "no");
    if (found.is_string())
        return *expected == found.get_ref<const std::string&>();
    if (!found.is_number())
        return false;
    // Two large whole numbers may differ and still be the same double.
    if (const auto whole = parseInteger<std::int64_t>(*expected); whole && found.is_number_integer())
        return found.get<std::int64_t>() == *whole;
    const auto number = parseDouble(*expected);
    return number && std::abs(found.get<double>() - *number) <= tolerance;
}

std::string inScenarioWords(const Json& value)
{
    if (value.is_null())
        return "nil";
    if (value.is_boolean())
        return value.get<bool>() ? "yes" : "no";
    if (value.is_string())
        return inQuotes(value.get_ref<const std::string&>());
    if (value.is_object())
        return "an object";
    if (value.is_array())
        return "a list";
    return value.dump();
}

} // namespace panotra::sim
