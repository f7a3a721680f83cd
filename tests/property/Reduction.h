/// Makes a scenario that fails shorter, so that what remains is what matters.
#pragma once

#include <functional>
#include <string>

namespace panotra::testing {

/// Leaves out every line without which the scenario still fails.
std::string reduced(const std::string& scenario, const std::function<bool(const std::string& scenario)>& fails);

} // namespace panotra::testing
