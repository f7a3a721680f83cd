/// Core Animation's private interface.
#pragma once

#include "platform/ios/Names.h"

namespace panotra::ios::selectors {

/// CALayer, on some systems only: the logic asks before it sends.
inline constinit Selector<void(bool)> setContinuousCorners { "setContinuousCorners:" };

} // namespace panotra::ios::selectors
