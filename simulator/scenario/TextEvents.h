/// What events say to a person.
#pragma once

#include "simulator/scenario/TraceLines.h"

#include <vector>

namespace panotra::sim {

/// Whether `next` is told on the line of the events in `run`, which is not empty: those of one moment that follow
/// each other and are of a kind that comes in rows.
bool continuesRun(const std::vector<Json>& run, const Json& next);

/// The events of a run as one line.
TraceLine describeRun(const std::vector<Json>& run);

} // namespace panotra::sim
