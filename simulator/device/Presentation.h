/// What the screen shows while animations run: values between the old and the new on the platform's curve.
#pragma once

#include "simulator/device/Animation.h"
#include "simulator/device/RunLoop.h"

namespace panotra::sim {

/// The platform's ease-in-ease-out curve, a cubic Bézier through (0.42, 0) and (0.58, 1). `fraction` of the time
/// and answer run from 0 to 1; a fraction outside is taken to the nearer end.
double easeInEaseOut(double fraction);

/// What an animation shows of one of its changes at a moment on the clock.
PropertyValue valueAt(const Animation& animation, const Animation::Change& change, double time);

/// What a view shows of a property at a moment on the clock: what the newest running animation of that property
/// makes of it, the model value if there is none.
PropertyValue presentationValue(const RunLoop& runLoop, const View& view, AnimatedProperty property, double time);

} // namespace panotra::sim
