/// `panotra desktop`: the mixer of the computer's own sound.
#pragma once

#include "simulator/ExitStatus.h"
#include "simulator/scenario/Library.h"

#include <optional>
#include <string>

namespace panotra::sim {

struct DesktopOptions {
    std::optional<std::string> preferencesFolder; ///< none: the person's own
    double limit = 100; ///< how loud what is put back may be, in percent
    bool isHeadless = false; ///< shows nothing
    bool isPhone = false; ///< shows a whole phone in a window, instead of the mixer above others
    bool wantsStatus = false; ///< asks the one that runs, and nothing else
    std::string resourceFolder {};
};

/// From 0 to 1.
float limitOf(const DesktopOptions& options);

/// Until a signal ends it. Where one runs already, that one is asked to show its mixer. Complaints go to standard
/// error, a line each.
ExitStatus openDesktop(const DesktopOptions& options, const Library& library);

} // namespace panotra::sim
