/// The `state` and `tree` events as a person reads them: what matters, laid out in the columns that there are.
#pragma once

#include "simulator/device/Device.h"
#include "simulator/scenario/Paragraph.h"

#include <string>

namespace panotra::sim {

/// Lines for below the event's own, all indented by `indent` columns.
std::string stateReportForPeople(const Json& event, std::size_t indent, const TextLook& look);
/// A line a view, subviews further in.
std::string treeReportForPeople(const Json& event, std::size_t indent, const TextLook& look);

} // namespace panotra::sim
