/// `panotra window`: a phone to play with.
#pragma once

#include "simulator/Play.h"
#include "simulator/picture/ShownMixer.h"

#include <optional>
#include <string>

namespace panotra::sim {

struct WindowOptions {
    std::optional<std::string> preferencesFolder; ///< none: the person's own
    std::optional<std::string> recordFile;
    std::optional<std::string> traceFile; ///< JSON Lines
    std::string screen = "375x667@2"; ///< WxH@S
    std::optional<int> system; ///< 9 to 16; none: what 10 to 12 have, all of it
    std::string wallpaper = "dusk"; ///< "dusk", "dawn" or a PNG file
    std::string resourceFolder {};
    bool wantsStatistics = false;
};

/// Until the window is closed. Complaints go to standard error, a line each.
ExitStatus openWindow(const WindowOptions& options, const Library& library);

} // namespace panotra::sim
