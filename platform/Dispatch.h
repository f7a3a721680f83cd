/// Grand Central Dispatch: the main thread, and blocks on its queue.
#pragma once

#include "platform/Block.h"

#include <cstdint>

namespace panotra {

/// Whether the caller runs on the main thread. From any thread.
bool isMainThread() noexcept;

/// Calls `work` with `context` on the main queue, behind what was asked for before. From any thread.
void dispatch_async_f(void* context, void (*work)(void* context)) noexcept;

/// Runs `block` on the main queue `nanoseconds` from now. What the block captured lives until it has run.
void dispatch_after(std::int64_t nanoseconds, Block<void()> block) noexcept;

} // namespace panotra
