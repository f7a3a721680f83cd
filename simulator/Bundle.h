/// Where the mixer's resource bundle is.
#pragma once

#include <string>

namespace panotra::sim {

/// The folder `Panotra.bundle` in the one that holds the running program: the build puts it there.
std::string bundleBesideProgram();

} // namespace panotra::sim
