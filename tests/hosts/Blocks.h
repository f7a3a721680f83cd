/// Blocks from a compiler that has them, as functions for one that has not.
#pragma once

#include <functional>

namespace panotra::hosts {

/// A function that calls a copy of the block on the heap, and keeps with it what the block names. Empty for null.
std::function<void()> functionOfBlock(const void* block);
/// The same of a block that takes a truth value.
std::function<void(bool)> completionOfBlock(const void* block);

} // namespace panotra::hosts
