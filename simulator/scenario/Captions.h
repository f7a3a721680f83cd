/// What the comments of a scenario tell those who watch it.
#pragma once

#include "simulator/scenario/Grammar.h"

#include <cstddef>
#include <string>
#include <vector>

namespace panotra::sim {

struct Caption {
    std::size_t command; ///< with which it appears: an index into the scenario's commands
    std::size_t line; ///< of that command, from 1
    std::string text; ///< one line, not empty
    friend bool operator==(const Caption&, const Caption&) = default;
};

/// In the order of commands, at most one each: the last paragraph of the comments above the command, lines put
/// together, and what stands behind it on its own line. An empty line, or one with nothing but a `#`, ends a paragraph.
std::vector<Caption> captionsOf(const Scenario& scenario);

} // namespace panotra::sim
