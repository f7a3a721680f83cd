/// `panotra play` where scenarios may take pictures.
#pragma once

#include "simulator/Play.h"

namespace panotra::sim {

/// As play(), the pictures in the folder that the options name.
ExitStatus playWithPictures(const PlayOptions& options, const Library& library);

} // namespace panotra::sim
