/// What `panotra desktop --status` prints.
#pragma once

#include "simulator/desktop/DesktopMixer.h"

#include <string>

namespace panotra::sim {

/// A line a fact, and a line for each level that is remembered. Levels are told as the server's tools tell them, and in
/// steps of its scale.
std::string statusOf(DesktopMixer& mixer);

} // namespace panotra::sim
