/// What a scenario on one system is compared with: a scenario that names no system, and what may differ between both.
///
/// What a scenario shows does not depend on the system, but for what is listed here.
#pragma once

#include "simulator/device/Device.h"

#include <nlohmann/json.hpp>

#include <string>
#include <vector>

namespace panotra::testing {

/// The scenario in a process of that system's shape.
std::string onSystem(const std::string& scenario, int system);

/// The scenario without a system that must leave the same trace: what the system lacks is lacking, and a duration of
/// the rotation is told with the change of the orientation where it comes with it.
std::string equivalentOf(const std::string& scenario, int system);

/// What the system makes of the events of that other scenario. What is hooked there is hooked here, or, from 13 on,
/// what took its place.
std::vector<sim::Json> expectedOn(const std::vector<sim::Json>& events, const std::string& scenario, int system);

} // namespace panotra::testing
