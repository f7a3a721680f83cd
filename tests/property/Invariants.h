/// What must hold at every moment of every play, by name.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace panotra::sim {
class Device;
}

namespace panotra::testing {

/// A process between two commands.
struct Moment {
    sim::Device& device;
    bool ringerWasMuted = false; ///< at any time before: the ringer's slider may say so until its level is drawn again
};

struct Invariant {
    const char* name;
    /// What is wrong; none if all is well.
    std::optional<std::string> (*violation)(const Moment& moment);
};

/// Those that hold whatever the outside does, levels that make no sense included.
std::span<const Invariant> invariants();

/// Everything has ended: the finger is lifted, the mixer dismissed, and time enough has passed. Answers what is left
/// over.
std::optional<std::string> leftOver(sim::Device& device);

/// Plays the scenario, looks after every command, and at its end dismisses the mixer and counts what is left.
/// Answers the first thing that did not hold, with the line after which it was seen; none if all was well.
std::optional<std::string> firstViolation(std::string_view scenario);

} // namespace panotra::testing
