/// `panotra window`: a phone to play with.
#pragma once

#include "simulator/Play.h"
#include "simulator/picture/ShownMixer.h"

#include <optional>
#include <string>

namespace panotra::sim {

struct WindowOptions {
    std::optional<std::string> preferencesFolder; ///< none: the person's own; where a scenario plays, memory
    std::optional<std::string> playFile; ///< a scenario to be played; "-": standard input
    bool isPlayedWhenSaved = false; ///< it is played anew when its file is saved
    std::optional<std::string> recordFile;
    std::optional<std::string> traceFile; ///< JSON Lines
    bool mayOverwrite = false; ///< both may be there already
    std::string shotsFolder = "."; ///< of pictures taken and recordings begun in the window
    std::string screen = "375x667@2"; ///< WxH@S, or the name of a phone
    std::optional<double> scale; ///< how many pixels do what one does on a plain display; none: the system says it
    std::optional<int> system; ///< 9 to 16; none: what 10 to 12 have, all of it
    bool isHeard = false; ///< buttons click, steps of the volume sound
    std::string wallpaper = "dusk"; ///< "dusk", "dawn" or a PNG file
    std::string resourceFolder {};
    bool wantsStatistics = false;
};

/// Until the window is closed. Complaints go to standard error, a line each; the names of pictures and recordings go to
/// standard output.
ExitStatus openWindow(const WindowOptions& options, const Library& library);

} // namespace panotra::sim
