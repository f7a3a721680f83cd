/// What a backdrop shows: the pixels behind it, blurred and coloured.
#pragma once

#include "simulator/render/Bitmap.h"
#include "simulator/render/Materials.h"

namespace panotra::render {

/// The part `area` of `behind` as seen through the material: blurred like a Gaussian of standard deviation `sigma`
/// (pixels), then coloured. The area lies within the bitmap, is not empty, and no pixel in it is transparent. What
/// lies outside the area does not bleed in; its edges go on outwards as they are. An Opaque bitmap of the area's size.
///
/// With sigma 0 and a material that keeps colours the pixels are the same to the bit.
Bitmap seenThrough(const Bitmap& behind, const PixelRect& area, double sigma, const Material& material);

} // namespace panotra::render
