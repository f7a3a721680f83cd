/// What can be known of who reads standard output.
#pragma once

#include "simulator/scenario/TextLook.h"

#include <string_view>

namespace panotra::sim {

/// As wide as the terminal, or as COLUMNS says, or 80 columns; in colours on a terminal that has them, unless NO_COLOR
/// forbids it. `isStandardOutput`: no file instead of it.
TextLook lookOfText(bool isStandardOutput);

} // namespace panotra::sim
