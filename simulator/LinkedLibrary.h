/// The mixer's library as the simulated loader sees it: the one place where simulator and logic meet.
#pragma once

#include "simulator/scenario/Library.h"

namespace panotra::sim {

/// The library, not yet loaded into the process that lives now: its process-wide values are those of a fresh image.
Library loadedLibrary();

} // namespace panotra::sim
