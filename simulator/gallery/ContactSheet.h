/// Pictures side by side on one sheet.
#pragma once

#include "simulator/render/Bitmap.h"
#include "simulator/render/Typesetter.h"

#include <string>
#include <vector>

namespace panotra::sim {

struct CaptionedPicture {
    render::Bitmap pixels; ///< Opaque, not empty
    std::string caption;
    bool isBelow = false; ///< below the one before it, not beside
};

/// From left to right, pictures that lie below each other in one column.
struct SheetRow {
    std::string caption;
    std::vector<CaptionedPicture> pictures;
};

/// The rows from top to bottom, pixel for pixel, each picture over its caption. An Opaque bitmap.
render::Bitmap contactSheet(const std::vector<SheetRow>& rows, const render::Typesetter& typesetter);

} // namespace panotra::sim
