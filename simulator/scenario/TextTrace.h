/// Every event as text: the scenario's commands and comments, and under each its lines of the trace.
#pragma once

#include "simulator/scenario/TraceLines.h"
#include "simulator/scenario/TraceWriter.h"

#include <string>

namespace panotra::sim {

class TextTrace : public TraceWriter {
public:
    TextTrace(Sink sink, EventFilter only);

    void command(const Command& command) override;
    void event(const Json& event) override;
    void finish() override;

private:
    Sink m_sink;
    EventFilter m_only;
    TraceLines m_lines;
    std::string m_heading {}; ///< the command and its comments, while nothing came of it
    bool m_wroteCommand = false;
    bool m_wroteEvents = false; ///< since the last command
};

} // namespace panotra::sim
