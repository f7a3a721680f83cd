/// How the interface is turned against the screen, and a picture of the screen as its viewer holds it.
#pragma once

#include "simulator/render/Bitmap.h"

#include <cstdint>

namespace panotra::render {

/// Radians, clockwise, for the platform's number of an interface orientation: half a turn for 2, a quarter for 3,
/// a quarter back for 4, none for any other.
double interfaceAngle(std::int64_t orientation);

/// A picture (Opaque) of the upright screen, turned back so that an interface of that orientation stands upright.
Bitmap asViewed(const Bitmap& screen, std::int64_t orientation);

} // namespace panotra::render
