/// Grand Central Dispatch: blocks on the main queue.
#pragma once

#include <cstdint>
#include <functional>

namespace panotra {

/// Runs `block` on the main queue `nanoseconds` from now. What the block captured lives until it has run.
void dispatch_after(std::int64_t nanoseconds, std::function<void()> block) noexcept;

} // namespace panotra
