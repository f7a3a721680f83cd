/// Random but reproducible scenarios: the same seed gives the same text on every machine.
#pragma once

#include <cstdint>
#include <string>

namespace panotra::testing {

/// A scenario free of mistakes that loads the library, mostly launches, and then lets anything happen to it.
std::string randomScenario(std::uint64_t seed);

/// Such a scenario in an odd process: up to four classes, of all that any system has, are lacking, or are there
/// although they belong to others.
std::string randomOddProcess(std::uint64_t seed);

} // namespace panotra::testing
