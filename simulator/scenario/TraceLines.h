/// The trace as lines for people, each a value: when, what, with what. Whoever shows them lays them out.
///
/// What comes in rows is told once: hooks, observers and listeners that follow each other share a line, so do the
/// levels of one save, and a line that would repeat itself at the same moment is counted instead.
#pragma once

#include "simulator/device/Device.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace panotra::sim {

struct TraceLine {
    std::string time; ///< in seconds with three decimals
    std::string what; ///< the kind of event
    std::string text {}; ///< with what; `state` and `tree` go on in an indented block, which begins with a line end
    std::vector<std::string> items {}; ///< the list that `text` begins
    std::size_t times = 1; ///< how often it happened

    friend bool operator==(const TraceLine&, const TraceLine&) = default;
};

class TraceLines {
public:
    using Sink = std::function<void(const TraceLine& line)>;

    explicit TraceLines(Sink sink);
    ~TraceLines();

    void event(const Json& event);
    /// Gives out what was held back until it is known to be complete.
    void finish();

private:
    void endRun();
    void endRepeats();

    Sink m_sink;
    std::vector<Json> m_run; ///< events that will share a line
    std::optional<TraceLine> m_line; ///< complete but for its count
};

} // namespace panotra::sim
