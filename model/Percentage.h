/// How a level is shown: as a percentage.
#pragma once

#include "platform/CoreGraphics.h"

#include <array>

namespace panotra {

/// Enough for any 32-bit integer, the sign and "%".
using PercentageText = std::array<char, 16>;

/// "%d%%" of `level` times 100, rounded through a 32-bit float to the nearest whole number, halves away from
/// zero. Levels are not clamped; what lies beyond 32-bit integers shows the nearest of them, not-a-number 0.
PercentageText percentageText(CGFloat level);

} // namespace panotra
