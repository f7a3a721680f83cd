/// How often the process has asked for memory.
#pragma once

#include <cstddef>

namespace panotra::testing {

/// Calls of the global `operator new` since the process began, by logic and simulated host together.
std::size_t allocationCount();

} // namespace panotra::testing
