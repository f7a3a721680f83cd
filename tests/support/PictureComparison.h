/// Compares pictures as people do: not bit by bit, but by what can be seen.
#pragma once

#include "simulator/render/Bitmap.h"

#include <optional>
#include <string>

namespace panotra::testing {

/// Each picture is averaged over squares of 4 by 4 pixels, and no average may differ by more than this in red, green or
/// blue, of 255. Edges that another release of cairo or freetype covers a little differently pass; an edge that moved
/// by a pixel, or a colour that is off, does not.
inline constexpr int pictureTolerance = 6;

/// What is wrong with `found` in a sentence, or nothing.
std::optional<std::string> firstDifference(const render::Bitmap& expected, const render::Bitmap& found);

/// Black where both pictures agree, brighter the more they differ. Both are of one size and not empty.
render::Bitmap differencePicture(const render::Bitmap& expected, const render::Bitmap& found);

} // namespace panotra::testing
