/// How often what happens at a random moment is tried.
#pragma once

#include <cstdlib>

namespace panotra::preferences::testing {

/// FAULT_ROUNDS of the environment, or as many as one waits for between other tests.
inline int rounds()
{
    constexpr int few = PANOTRA_SANITIZED ? 20 : 100; // each takes the sanitizers several times as long
    const char* const asked = std::getenv("FAULT_ROUNDS");
    return asked == nullptr ? few : std::atoi(asked);
}

} // namespace panotra::preferences::testing
