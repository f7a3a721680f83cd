/// Spelling JSON. What is not plain is left to the library, so that a line and an object never differ.
#include "simulator/device/EventForms.h"

#include <algorithm>
#include <array>
#include <cassert>
#include <charconv>
#include <cmath>
#include <utility>

namespace panotra::sim {

namespace {

/// More than most lines need.
constexpr std::size_t usualLine = 160;

/// Stands for itself between quotation marks.
bool isPlain(char letter)
{
    return letter >= ' ' && letter <= '~' && letter != '"' && letter != '\\';
}

template <typename Integer> void appendInteger(std::string& text, Integer value)
{
    std::array<char, 24> digits {};
    text.append(digits.data(), std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr);
}

/// Takes the first word off the list. A question mark belongs to it.
std::string_view takeWord(std::string_view& words)
{
    const auto word = words.substr(0, words.find(' '));
    words.remove_prefix(std::min(word.size() + 1, words.size()));
    return word;
}

bool isOptional(std::string_view word)
{
    return word.ends_with('?');
}

std::string_view plainName(std::string_view word)
{
    return word.substr(0, word.size() - (isOptional(word) ? 1 : 0));
}

} // namespace

void EventFields::note(std::string_view name)
{
    auto word = takeWord(m_missing);
    while (isOptional(word) && plainName(word) != name)
        word = takeWord(m_missing);
    assert(plainName(word) == name && "a field that the table does not have there");
}

void EventFields::noteEnd()
{
    while (!m_missing.empty()) {
        [[maybe_unused]] const auto word = takeWord(m_missing);
        assert(isOptional(word) && "a field of the table is missing");
    }
}

EventObject::EventObject(const TraceEvent& event, double seconds)
    : EventFields(event)
{
    constexpr std::size_t usualFields = 6;
    m_members.reserve(usualFields);
    m_members.emplace_back("t", seconds);
    m_members.emplace_back("event", event.name);
}

EventLine::EventLine(const TraceEvent& event, double seconds)
    : EventFields(event)
{
    m_text.reserve(usualLine);
    m_text += R"({"t":)";
    takeNumber(seconds);
    begin("event");
    takeText(event.name);
}

Json EventObject::take()
{
    noteEnd();
    return std::move(m_members);
}

std::string_view EventLine::finish()
{
    noteEnd();
    return m_text += "}\n";
}

void EventLine::begin(std::string_view name)
{
    m_text += ",\"";
    m_text += name;
    m_text += "\":";
}

void EventLine::takeNothing()
{
    m_text += "null";
}

void EventLine::takeTruth(bool value)
{
    m_text += value ? "true" : "false";
}

void EventLine::takeInteger(std::int64_t value)
{
    appendInteger(m_text, value);
}

void EventLine::takeUnsigned(std::uint64_t value)
{
    appendInteger(m_text, value);
}

void EventLine::takeNumber(double value)
{
    if (!std::isfinite(value)) {
        takeNothing(); // JSON has no word for it
        return;
    }
    std::array<char, 64> digits {};
    // The library's own spelling: that of the standard library is another one for some numbers.
    m_text.append(digits.data(), nlohmann::detail::to_chars(digits.data(), digits.data() + digits.size(), value));
}

void EventLine::takeText(std::string_view value)
{
    if (!std::ranges::all_of(value, isPlain)) {
        takeJson(Json(value));
        return;
    }
    m_text += '"';
    m_text += value;
    m_text += '"';
}

void EventLine::takeJson(const Json& value)
{
    m_text += jsonText(value);
}

std::string jsonText(const Json& value)
{
    constexpr int onOneLine = -1;
    // Preference files of other programs may hold any bytes.
    return value.dump(onOneLine, ' ', false, Json::error_handler_t::replace);
}

} // namespace panotra::sim
