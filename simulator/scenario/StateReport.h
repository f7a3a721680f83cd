/// The `state` event: everything worth knowing about the process, gathered without touching it.
#pragma once

#include "simulator/device/Device.h"
#include "simulator/scenario/Library.h"

namespace panotra::sim {

/// The event's fields. Creates nothing: a controller that nobody has asked for yet stays away.
Json stateReport(Device& device, const Library& library);

} // namespace panotra::sim
