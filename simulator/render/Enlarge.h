/// From the smaller picture that is blurred to the one that is shown.
#pragma once

#include "simulator/render/Bitmap.h"
#include "simulator/render/Plane.h"

namespace panotra::render {

/// Writes every pixel of `bitmap` (Opaque), interpolated between those of a plane that is smaller by `factor`, which
/// is 1, 2, 4 or 8: each of the plane's pixels is the middle of a block, and only those at the right and at the
/// bottom may reach out of the bitmap.
void enlarge(const Plane& plane, int factor, Bitmap& bitmap);

} // namespace panotra::render
