/// A walk over both traces at once.
#include "tests/support/TraceComparison.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <cmath>
#include <vector>

namespace panotra::testing {

namespace {

using Json = nlohmann::ordered_json;

constexpr double tolerance = 1e-6;

/// Where two values first differ: a dotted path into them, and what they are there.
struct Difference {
    std::string path;
    std::string words;
};

Difference difference(const std::string& path, const std::string& expected, const std::string& found)
{
    return { path, "expected " + expected + ", found " + found };
}

bool areClose(double a, double b)
{
    return std::abs(a - b) <= tolerance * std::max({ 1.0, std::abs(a), std::abs(b) });
}

std::string below(const std::string& path, const std::string& key)
{
    return path.empty() ? key : path + '.' + key;
}

std::optional<Difference> compare(const std::string& path, const Json& expected, const Json& found);

std::optional<Difference> compareObjects(const std::string& path, const Json& expected, const Json& found)
{
    constexpr const char* noField = "no such field";
    for (const auto& [key, value] : expected.items()) {
        if (!found.contains(key))
            return difference(below(path, key), value.dump(), noField);
        if (auto result = compare(below(path, key), value, found.at(key)))
            return result;
    }
    for (const auto& [key, value] : found.items()) {
        if (!expected.contains(key))
            return difference(below(path, key), noField, value.dump());
    }
    return std::nullopt;
}

std::optional<Difference> compareLists(const std::string& path, const Json& expected, const Json& found)
{
    for (std::size_t index = 0; index < std::min(expected.size(), found.size()); ++index) {
        if (auto result = compare(below(path, std::to_string(index)), expected[index], found[index]))
            return result;
    }
    if (expected.size() == found.size())
        return std::nullopt;
    return difference(path, std::to_string(expected.size()) + " elements", std::to_string(found.size()));
}

std::optional<Difference> compare(const std::string& path, const Json& expected, const Json& found)
{
    if (expected.is_object() && found.is_object())
        return compareObjects(path, expected, found);
    if (expected.is_array() && found.is_array())
        return compareLists(path, expected, found);
    const bool agree = expected.is_number() && found.is_number() ? areClose(expected.get<double>(), found.get<double>())
                                                                 : expected.type() == found.type() && expected == found;
    return agree ? std::nullopt : std::optional(difference(path, expected.dump(), found.dump()));
}

/// How many bytes a picture has depends on who compressed it.
bool isAnyPicture(const Json& expected, const Json& found)
{
    const auto value = found.find("value");
    return expected.value("event", "") == "answer" && expected.value("question", "") == "icon"
        && expected.contains("value") && expected["value"] == "PNG" && value != found.end() && value->is_number()
        && value->get<double>() > 0;
}

std::optional<Difference> compareEvents(Json expected, const Json& found)
{
    if (!expected.is_object() || !found.is_object())
        return difference("", "an event", found.dump());
    if (isAnyPicture(expected, found))
        expected["value"] = found.at("value");
    return compare("", expected, found);
}

std::vector<std::string_view> linesOf(std::string_view text)
{
    std::vector<std::string_view> lines;
    while (!text.empty()) {
        lines.push_back(text.substr(0, text.find('\n')));
        text.remove_prefix(std::min(text.size(), lines.back().size() + 1));
    }
    return lines;
}

/// A line as JSON; what is not JSON becomes a discarded value, which equals nothing.
Json parse(std::string_view line)
{
    return Json::parse(line, nullptr, false);
}

std::string eventName(const Json& event)
{
    return event.is_object() ? " (" + event.value("event", "?") + ')' : std::string();
}

} // namespace

std::optional<std::string> firstDifference(std::string_view expected, std::string_view actual)
{
    const auto expectedLines = linesOf(expected);
    const auto actualLines = linesOf(actual);
    for (std::size_t index = 0; index < std::max(expectedLines.size(), actualLines.size()); ++index) {
        const auto place = "line " + std::to_string(index + 1);
        if (index >= actualLines.size())
            return place + ": expected " + std::string(expectedLines[index]) + ", found the end of the trace";
        if (index >= expectedLines.size())
            return place + ": expected the end of the trace, found " + std::string(actualLines[index]);
        const auto expectedEvent = parse(expectedLines[index]);
        const auto found = parse(actualLines[index]);
        if (expectedEvent.is_discarded() || found.is_discarded())
            return place + ": " + (found.is_discarded() ? "found" : "expected") + " a line that is not JSON";
        if (const auto difference = compareEvents(expectedEvent, found))
            return place + eventName(expectedEvent) + ", " + difference->path + ": " + difference->words;
    }
    return std::nullopt;
}

} // namespace panotra::testing
