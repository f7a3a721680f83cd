/// What the player needs of the library that a scenario loads, and nothing more of it.
#pragma once

#include "simulator/device/Device.h"

#include <cstdint>
#include <functional>
#include <string>

namespace panotra::sim {

/// What the layout keeps from one call to the next.
struct LayoutMemory {
    bool justCreated;
    std::int64_t previousOrientation; ///< -1 before the first layout
};

struct Library {
    /// Runs its constructor, as the loader does.
    std::function<void()> load;
    /// The process-wide values by their names, in the order of the trace.
    std::function<Json()> globals;
    std::function<LayoutMemory()> layoutMemory;
    /// The file from which it is loaded; empty if it is part of the program.
    std::function<std::string()> file {};
};

} // namespace panotra::sim
