/// `panotra desktop --phone`: the mixer of the computer's own sound on a phone in a window.
#pragma once

#include "simulator/desktop/OpenDesktop.h"

#include <string>

namespace panotra::sim {

/// Until the window is closed or a signal ends it. `folder`: of the property lists; exists. `door`: where those connect
/// who ask for something.
ExitStatus openPhoneWindow(const DesktopOptions& options, const Library& library, const std::string& folder, int door);

} // namespace panotra::sim
