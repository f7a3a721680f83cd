/// What is on the gallery's sheets.
#pragma once

#include "simulator/gallery/Studio.h"

#include <span>

namespace panotra::sim {

struct GallerySheet {
    const char* name; ///< the file's, without its ending
    const char* title;
    const char* text; ///< a sentence for the page
    std::vector<SheetRow> (*rows)(Studio& studio);
    /// The bytes of a film of the same, WebP; empty and the reason in `failure` if there is none. Null: nothing moves.
    std::string (*film)(Studio& studio, std::string& failure) = nullptr;
};

std::span<const GallerySheet> gallerySheets();

} // namespace panotra::sim
