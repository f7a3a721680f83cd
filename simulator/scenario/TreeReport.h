/// The `tree` event: the mixer's views as they are.
#pragma once

#include "simulator/device/Device.h"

namespace panotra::sim {

/// The event's one field, `root`: the window's node, or null without a window.
Json treeReport(Device& device);

} // namespace panotra::sim
