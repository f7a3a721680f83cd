/// The whole gallery: a folder of sheets and a page.
#pragma once

#include "simulator/Play.h"

#include <string>

namespace panotra::sim {

/// Fills the folder, which is made if need be, and tells on standard output what it is about to draw. Complaints go
/// to standard error, a line each.
ExitStatus makeGallery(const std::string& folder, const Library& library, const std::string& resourceFolder);

} // namespace panotra::sim
