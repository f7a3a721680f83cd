/// What the mixer that runs answers to other processes.
#pragma once

#include "simulator/desktop/DesktopMixer.h"
#include "simulator/desktop/DesktopRequests.h"

#include <functional>

namespace panotra::sim {

/// `present`: shows the mixer, and answers whether it can. Both must outlive the answers.
DesktopRequests::Take answersOf(DesktopMixer& mixer, std::function<bool()> present);

} // namespace panotra::sim
