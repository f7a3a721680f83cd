/// Every interleaving up to a depth, equal states once: breadth first, so that what is found is found by the fewest
/// events.
///
/// A state is come back to by playing the way to it once more. Measured: the way takes a third of a millisecond, a copy
/// of the process by fork() more than two. All pauses are looked at on one way, one after another.
#pragma once

#include "tests/interleavings/World.h"

#include <cstddef>
#include <functional>
#include <map>
#include <optional>
#include <string>

namespace panotra::testing {

struct Search {
    unsigned depth = 4; ///< events and pauses in a row
    unsigned processes = 1;
    Plant plant = nullptr;
    double seconds = 0; ///< the search ends after so long, wherever it is; 0: no limit
    /// After each share of a depth: how many of its states have been left behind. Empty: nobody watches.
    std::function<void(unsigned depth, std::size_t done, std::size_t all)> progress = {};
};

struct Found {
    unsigned depth = 0; ///< looked at whole
    double partOfNext = 0; ///< how much of the depth after it, 0 to 1
    std::size_t states = 0; ///< that differ
    std::size_t transitions = 0;
    /// What did not hold, and a scenario that shows it, from which no line can be left out.
    std::optional<std::string> violation;
    std::string scenario;
    /// The shortest scenario in which each allowance was seen, by its number.
    std::map<std::size_t, std::string> allowed;
};

Found explore(const Search& search);

} // namespace panotra::testing
