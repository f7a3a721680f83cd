/// What must hold at every moment of every play.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace panotra::testing {

/// Plays the scenario, looks after every command, and at its end dismisses the mixer and counts what is left.
/// Answers the first thing that did not hold, with the line after which it was seen; none if all was well.
std::optional<std::string> firstViolation(std::string_view scenario);

} // namespace panotra::testing
