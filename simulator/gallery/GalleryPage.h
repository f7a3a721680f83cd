/// The page that shows the gallery in a browser.
#pragma once

#include "simulator/gallery/GallerySheets.h"

#include <string>

namespace panotra::sim {

inline constexpr const char* introduction = "phones"; ///< the name of the picture that comes first

/// HTML that needs nothing but the sheets' pictures beside it.
std::string galleryPage(std::span<const GallerySheet> sheets);

} // namespace panotra::sim
