/// What an event costs, counted from the library's side.
#pragma once

#include <cstddef>
#include <functional>
#include <iosfwd>
#include <map>
#include <string>

namespace panotra::hosts {

struct Costs {
    std::size_t messages = 0; ///< that the library sends
    std::size_t crossings = 0; ///< messages, and calls of the platform's functions
    std::size_t allocations = 0; ///< the library's own memory, and the objects that it makes
    std::size_t handles = 0; ///< opened on preference domains
    std::size_t replacements = 0; ///< of a domain's file
    std::size_t views = 0; ///< that were sent a message

    bool isWithin(const Costs& most) const;
    friend std::ostream& operator<<(std::ostream& out, const Costs& costs);
};

/// All but handles and replacements.
Costs costsOfCalls(const std::function<void()>& work);

/// Under callgrind, started with --instr-atstart=no, leaves the instructions of `work` in a part of the profile named
/// `name`. Otherwise only does it.
void countInstructions(const std::string& name, const std::function<void()>& work);

/// The rows of the table of costs in a text of Markdown. A row is its name, its instructions, which are not among what
/// is counted here, and the six costs.
std::map<std::string, Costs> readCosts(const std::string& markdown);

} // namespace panotra::hosts
