/// The library as a file, for the player of scenarios.
#pragma once

#include "simulator/scenario/Library.h"

#include <string>

namespace panotra::hosts {

/// Scenarios load this file: a shared object of this machine or a library of the platform. Without it they load what
/// the environment's PANOTRA_LIBRARY names.
void chooseLibrary(const std::string& path);

/// What scenarios load: the Objective-C classes stand in front of the device, and the library comes into the process by
/// its file's constructor alone. One load a process. A file that cannot be loaded ends the process with a complaint and
/// sim::ExitStatus::FileFailed.
sim::Library chosenLibrary();

} // namespace panotra::hosts
