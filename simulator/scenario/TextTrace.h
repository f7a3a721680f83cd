/// The trace for people: the scenario's commands and comments, and under each a line an event: when, what, with what.
///
/// What comes in rows is told once: hooks, observers and listeners that follow each other share a line, so do the
/// levels of one save, and a line that would repeat itself at the same moment is counted instead.
#pragma once

#include "simulator/scenario/TraceWriter.h"

#include <cstddef>
#include <string>
#include <vector>

namespace panotra::sim {

class TextTrace : public TraceWriter {
public:
    explicit TextTrace(Sink sink);

    void command(const Command& command) override;
    void event(const Json& event) override;
    void finish() override;

private:
    void endRun();
    void endRepeats();

    Sink m_sink;
    std::vector<Json> m_run; ///< events that will share a line
    std::string m_line; ///< complete but for its count
    std::size_t m_lineCount = 0;
    bool m_wroteCommand = false;
    bool m_wroteEvents = false; ///< since the last command
};

} // namespace panotra::sim
