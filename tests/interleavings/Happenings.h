/// What races in real use, as lines of a scenario: events, and pauses around every delay of the system.
#pragma once

#include <span>
#include <string>

namespace panotra::sim {
class Device;
}

namespace panotra::testing {

/// How every interleaving begins: an older system, whose ringer has to be given back after a sound, with all twelve
/// levels remembered, the indicator replaced, and everything switched on that can dismiss the mixer.
extern const char* const beginning;

/// What the next lines depend on.
struct Situation {
    sim::Device& device;
    bool isRingerMuted = false; ///< the device only passes it on
};

struct Happening {
    const char* name;
    /// Its lines as things stand. Some turn something over that they find this way or the other.
    std::string (*lines)(const Situation& situation);
};

std::span<const Happening> happenings();

/// Seconds, ascending: just before, at and just after each delay of the system.
std::span<const double> pauses();

std::string lineOfPause(double seconds);

} // namespace panotra::testing
