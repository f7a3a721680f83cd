/// A life with the mixer, seeded: some hundreds of events a day, the levels compared with a model after each, and every
/// midnight what is held in memory.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>

namespace panotra::sim {
class Device;
}

namespace panotra::testing {

struct YearAsked {
    unsigned days = 365;
    unsigned eventsADay = 300;
    std::uint64_t seed = 1;
    /// Called at every midnight with the days that are over. Empty: nobody watches.
    std::function<void(unsigned days)> midnight = {};
    /// Meddles with the process on the morning of each day, to see whether that is noticed.
    void (*plant)(sim::Device& device, unsigned day) = nullptr;
};

struct YearLived {
    unsigned days = 0;
    std::size_t events = 0;
    std::size_t showings = 0; ///< how often the mixer was built
    std::size_t drags = 0; ///< how often a finger moved on a slider
    std::size_t objects = 0; ///< that live at midnight after the first days
    std::size_t heapAfterFirstDays = 0; ///< bytes in use; 0 where nobody counts
    std::size_t heapAtTheEnd = 0;
    std::optional<std::string> complaint; ///< the first, with its day and event
};

YearLived liveAYear(const YearAsked& asked);

} // namespace panotra::testing
