/// Lines held back until it is known that they are complete.
#include "simulator/scenario/TextTrace.h"

#include "simulator/scenario/Text.h"
#include "simulator/scenario/TextEvents.h"
#include "simulator/scenario/TextFormat.h"

#include <array>
#include <cstdio>
#include <utility>

namespace panotra::sim {

namespace {

/// "     0.500  ", the moment of an event.
std::string timeColumn(const Json& event)
{
    std::array<char, 64> column {};
    constexpr auto width = static_cast<int>(timeColumnWidth);
    std::snprintf(column.data(), column.size(), "%*.3f  ", width, event.at("t").get<double>());
    return column.data();
}

} // namespace

TextTrace::TextTrace(Sink sink)
    : m_sink(std::move(sink))
{
}

void TextTrace::command(const Command& command)
{
    finish();
    // What a command has brought about stands as a paragraph under it, what the scenario has to say above it.
    std::string text = m_wroteEvents || (m_wroteCommand && !command.remarks.empty()) ? "\n" : "";
    for (const auto remark : command.remarks)
        text += printable(remark) + '\n';
    m_sink(text + printable(command.source) + '\n');
    m_wroteCommand = true;
    m_wroteEvents = false;
}

void TextTrace::event(const Json& event)
{
    if (!m_run.empty() && !continuesRun(m_run, event))
        endRun();
    m_run.push_back(event);
}

void TextTrace::finish()
{
    endRun();
    endRepeats();
}

void TextTrace::endRun()
{
    if (m_run.empty())
        return;
    auto line = timeColumn(m_run.front()) + describeRun(m_run);
    m_run.clear();
    if (line != m_line)
        endRepeats();
    m_line = std::move(line);
    ++m_lineCount;
}

void TextTrace::endRepeats()
{
    if (m_lineCount == 0)
        return;
    m_sink(m_line + (m_lineCount > 1 ? "  (" + std::to_string(m_lineCount) + " times)\n" : "\n"));
    m_lineCount = 0;
    m_line.clear();
    m_wroteEvents = true;
}

} // namespace panotra::sim
