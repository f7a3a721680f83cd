/// Random but reproducible scenarios: the same seed gives the same text on every machine.
#pragma once

#include <cstdint>
#include <string>

namespace panotra::testing {

/// A scenario free of mistakes that loads the library, mostly launches, and then lets anything happen to it.
std::string randomScenario(std::uint64_t seed);

} // namespace panotra::testing
