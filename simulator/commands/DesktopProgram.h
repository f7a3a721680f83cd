/// How `panotra desktop` becomes the program that knows sound servers.
#pragma once

#include "simulator/ExitStatus.h"

namespace panotra::sim {

/// Goes on as `panotra-desktop`, which lies beside the running program, with the same arguments. Comes back only if
/// that fails, after a complaint.
ExitStatus becomeDesktopProgram(char** arguments);

} // namespace panotra::sim
