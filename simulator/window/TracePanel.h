/// Looking at the trace beside the phone.
#pragma once

#include "simulator/window/Board.h"

#include <span>
#include <string>
#include <vector>

namespace panotra::sim {

/// What of the trace's panel a spot is.
enum class TracePart { Whole, Line, Filter, Copy, Pause };

/// Those that there are to see, filtered, the newest last. They live as long as the session and the looks are left
/// alone.
std::vector<const TraceLine*> shownLines(const Session& session, const TraceLooks& looks);
/// How many lines are shown at once in the panel's area of lines, which is so high.
std::size_t roomForLines(double height);
/// The filter after the present one: each kind of event that there is, then all of them.
std::string nextFilter(const Session& session, const TraceLooks& looks);
/// As it is copied.
std::string textOf(const TraceLine& line);
/// The field of the view that a line is about; empty if it is about none.
std::string viewNamedIn(const TraceLine& line);

} // namespace panotra::sim
