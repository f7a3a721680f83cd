/// `expect`: a path into the state and the value to be found there.
#pragma once

#include "simulator/device/Device.h"

#include <optional>
#include <string>
#include <string_view>

namespace panotra::sim {

/// The value at a dotted path, or null if it leads nowhere. Keys may hold dots: at each object the longest key
/// that fits is taken. A number indexes a list.
const Json* valueAt(const Json& state, std::string_view path);

/// For a path that leads nowhere from `value`: the path that was meant, each of its keys the nearest there is. None if
/// some part of it is like no key.
std::optional<std::string> nearestPath(const Json& value, std::string_view path);

/// Whether `found` is what a scenario writes as `expected`, absent for `nil`: numbers within 1e-6 (whole ones
/// exactly), booleans as yes and no, strings to the letter. An object or a list equals nothing.
bool matches(const Json& found, const std::optional<std::string>& expected);

/// A value as a scenario would write it, for messages.
std::string inScenarioWords(const Json& value);

} // namespace panotra::sim
