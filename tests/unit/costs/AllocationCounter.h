/// Counts what a stretch of code takes from the heap. Linked into a program, it counts the whole program.
#pragma once

#include <cstddef>

namespace panotra::testing {

/// How often `operator new` was called since the program began.
std::size_t allocationCount();

} // namespace panotra::testing
