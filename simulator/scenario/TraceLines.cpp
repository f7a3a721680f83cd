/// Lines held back until it is known that they are complete.
#include "simulator/scenario/TraceLines.h"

#include "simulator/scenario/TextEvents.h"

#include <nlohmann/json.hpp>

#include <utility>

namespace panotra::sim {

TraceLines::TraceLines(Sink sink)
    : m_sink(std::move(sink))
{
}

TraceLines::~TraceLines() = default;

void TraceLines::event(const Json& event)
{
    if (!m_run.empty() && !continuesRun(m_run, event))
        endRun();
    m_run.push_back(event);
}

void TraceLines::finish()
{
    endRun();
    endRepeats();
}

void TraceLines::endRun()
{
    if (m_run.empty())
        return;
    TraceLine line = describeRun(m_run);
    m_run.clear();
    if (m_line)
        line.times = m_line->times;
    if (m_line == line) {
        ++m_line->times;
        return;
    }
    endRepeats();
    line.times = 1;
    m_line = std::move(line);
}

void TraceLines::endRepeats()
{
    if (m_line)
        m_sink(*m_line);
    m_line.reset();
}

} // namespace panotra::sim
