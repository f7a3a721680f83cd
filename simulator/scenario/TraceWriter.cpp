/// JSON Lines, and the choice between the formats.
#include "simulator/scenario/TraceWriter.h"

#include "simulator/scenario/StoryTrace.h"
#include "simulator/scenario/TextTrace.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace panotra::sim {

namespace {

class JsonTrace : public TraceWriter {
public:
    explicit JsonTrace(Sink sink)
        : m_sink(std::move(sink))
    {
    }

    void event(const Json& event) override { m_sink(jsonLine(event)); }

private:
    Sink m_sink;
};

void appendNumber(std::string& line, double number)
{
    if (!std::isfinite(number)) {
        line += "null";
        return;
    }
    std::array<char, 64> digits;
    line.append(digits.data(), nlohmann::detail::to_chars(digits.data(), digits.data() + digits.size(), number));
}

/// Whether a text stands between quotes as it is.
bool isPlain(const std::string& text)
{
    return std::ranges::all_of(text,
        [](char character) { return character >= ' ' && character <= '~' && character != '"' && character != '\\'; });
}

/// Everything that takes thought, by the library of JSON. Preference files of other programs may hold any bytes.
void appendByLibrary(std::string& line, const Json& value)
{
    constexpr int onOneLine = -1;
    line += value.dump(onOneLine, ' ', false, Json::error_handler_t::replace);
}

void appendText(std::string& line, const std::string& text)
{
    if (!isPlain(text)) {
        appendByLibrary(line, text);
        return;
    }
    line += '"';
    line += text;
    line += '"';
}

/// As the library of JSON would write it, without setting up its machinery for every line of a trace.
void append(std::string& line, const Json& value) // NOLINT(misc-no-recursion): as deep as the event
{
    const char* separator = "";
    switch (value.type()) {
    case Json::value_t::object:
        line += '{';
        for (const auto& [name, member] : value.get_ref<const Json::object_t&>()) {
            line += separator;
            appendText(line, name);
            line += ':';
            append(line, member);
            separator = ",";
        }
        line += '}';
        return;
    case Json::value_t::array:
        line += '[';
        for (const Json& element : value) {
            line += separator;
            append(line, element);
            separator = ",";
        }
        line += ']';
        return;
    case Json::value_t::string:
        appendText(line, value.get_ref<const std::string&>());
        return;
    case Json::value_t::boolean:
        line += value.get<bool>() ? "true" : "false";
        return;
    case Json::value_t::null:
        line += "null";
        return;
    case Json::value_t::number_float:
        appendNumber(line, value.get<double>());
        return;
    default:
        appendByLibrary(line, value);
        return;
    }
}

} // namespace

std::unique_ptr<TraceWriter> makeTraceWriter(TraceFormat format, TraceWriter::Sink sink, TextLook look)
{
    switch (format) {
    case TraceFormat::Story:
        return std::make_unique<StoryTrace>(std::move(sink), std::move(look));
    case TraceFormat::Verbose:
        return std::make_unique<TextTrace>(std::move(sink), std::move(look.only));
    case TraceFormat::JsonLines:
        break;
    }
    return std::make_unique<JsonTrace>(std::move(sink));
}

std::string jsonLine(const Json& event)
{
    std::string line;
    line.reserve(160); // most are shorter
    append(line, event);
    line += '\n';
    return line;
}

} // namespace panotra::sim
