/// What must hold in every interleaving, beyond what holds whatever happens; and what is allowed though it looks wrong.
#pragma once

#include "tests/property/Invariants.h"

namespace panotra::testing {

/// A process in which one event after another took place.
struct Course {
    Moment moment;
    /// A drag whose slider was torn down under the finger, which nobody ends any more.
    bool isDragLost = false;
};

struct Rule {
    const char* name;
    /// What is wrong; none if all is well.
    std::optional<std::string> (*violation)(const Course& course);
};

/// Between two events.
std::span<const Rule> rules();
/// Once the finger is lifted, the buttons are let go and nothing is pending.
std::span<const Rule> rulesAtRest();

/// Something that is meant, and must be found for as long as it is.
struct Allowance {
    const char* name;
    /// The scenario that shows it, in the folder allowed/, without its extension.
    const char* scenario;
    /// Whether it is so at this moment of rest.
    bool (*isSeen)(const Course& course);
};

std::span<const Allowance> allowances();

// What a course holds, before and after an event.

/// A level of the known pair: the slider's while there is one, else what is stored.
double rememberedLevel(const sim::Device& device, const std::string& category, const std::string& route);

/// What the course of one event must have done to the levels.
struct LevelsBefore {
    explicit LevelsBefore(const Course& course);
    /// `happening` is its name. What is wrong; none if all is well.
    std::optional<std::string> violationAfter(const std::string& happening, const Course& course) const;

    bool isSwallowed; ///< the next announcement never arrives
    bool isPanning;
    double remembered; ///< of the active pair
};

} // namespace panotra::testing
