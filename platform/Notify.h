/// Darwin notifications: named signals between processes, each with a 64-bit state. A null name, token or callback:
/// nothing happens.
#pragma once

#include <cstdint>

namespace panotra {

/// Registers interest in `name` and stores a token for its state in `*token`. On failure the token stays.
void notify_register_check(const char* name, std::int32_t* token) noexcept;
/// The state that belongs to `token`; zero for a token that was never registered.
std::uint64_t notify_get_state(std::int32_t token) noexcept;
/// Tells every observer of `name`, in any process.
void notify_post(const char* name) noexcept;

/// Adds an observer to the Darwin notification centre (observer and object null, suspension behaviour 0).
/// `callback` runs on the main thread. There is no removal: observers live as long as the process.
void addDarwinObserver(const char* name, void (*callback)() noexcept) noexcept;

} // namespace panotra
