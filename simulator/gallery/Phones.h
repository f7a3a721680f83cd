/// The picture that introduces the mixer: three phones on a table.
#pragma once

#include "simulator/gallery/Studio.h"

namespace panotra::sim {

/// An Opaque bitmap.
render::Bitmap threePhones(Studio& studio);

} // namespace panotra::sim
