/// The `state` and `tree` events as blocks of text, every line indented but the first.
#pragma once

#include "simulator/device/Device.h"

#include <string>

namespace panotra::sim {

std::string describeState(const Json& event);
/// A line a view, told by what sets it apart from a plain one.
std::string describeTree(const Json& event);

} // namespace panotra::sim
