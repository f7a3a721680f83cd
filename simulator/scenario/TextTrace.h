/// The trace for people as text: the scenario's commands and comments, and under each its lines of the trace.
#pragma once

#include "simulator/scenario/TraceLines.h"
#include "simulator/scenario/TraceWriter.h"

namespace panotra::sim {

class TextTrace : public TraceWriter {
public:
    explicit TextTrace(Sink sink);

    void command(const Command& command) override;
    void event(const Json& event) override;
    void finish() override;

private:
    Sink m_sink;
    TraceLines m_lines;
    bool m_wroteCommand = false;
    bool m_wroteEvents = false; ///< since the last command
};

} // namespace panotra::sim
