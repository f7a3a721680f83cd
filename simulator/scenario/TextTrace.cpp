/// Lines laid out in columns.
#include "simulator/scenario/TextTrace.h"

#include "simulator/scenario/TextFormat.h"
#include "simulator/text/Printable.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <string>
#include <utility>

namespace panotra::sim {

namespace {

// The columns of a line: time, what happened, and with what.
constexpr std::size_t whatColumnWidth = 14;
constexpr std::size_t textColumn = timeColumnWidth + 2 + whatColumnWidth + 1;

/// "     0.500  setVolume      Ringtone 50%\n".
std::string laidOut(const TraceLine& line)
{
    std::string text(timeColumnWidth - std::min(timeColumnWidth, line.time.size()), ' ');
    text += line.time + "  " + line.what;
    const std::string words = wrapped(line.text, line.items, textColumn);
    // A block begins with a new line.
    if (!words.empty() && words.front() != '\n') {
        text.resize(std::max(text.size(), textColumn - 1), ' ');
        text += ' ';
    }
    text += words;
    return text + (line.times > 1 ? "  (" + std::to_string(line.times) + " times)\n" : "\n");
}

} // namespace

TextTrace::TextTrace(Sink sink, EventFilter only)
    : m_sink(std::move(sink))
    , m_only(std::move(only))
    , m_lines([this](const TraceLine& line) {
        if (!m_heading.empty()) {
            m_sink(std::exchange(m_heading, {}));
            m_wroteCommand = true;
        }
        m_sink(laidOut(line));
        m_wroteEvents = true;
    })
{
}

void TextTrace::command(const Command& command)
{
    finish();
    // What a command has brought about stands as a paragraph under it, what the scenario has to say above it.
    std::string text = m_wroteEvents || (m_wroteCommand && !command.remarks.empty()) ? "\n" : "";
    for (const auto remark : command.remarks)
        text += printable(remark) + '\n';
    m_heading = text + printable(command.source) + '\n';
    if (!m_only.takesAll())
        return;
    m_sink(std::exchange(m_heading, {}));
    m_wroteCommand = true;
    m_wroteEvents = false;
}

void TextTrace::event(const Json& event)
{
    if (m_only.takes(event.value("event", std::string())))
        m_lines.event(event);
}

void TextTrace::finish()
{
    m_lines.finish();
}

} // namespace panotra::sim
