/// `panotra picture`: one picture of the mixer, without a scenario.
#pragma once

#include "simulator/Play.h"
#include "simulator/picture/ShownMixer.h"

#include <optional>
#include <string>
#include <vector>

namespace panotra::sim {

/// The command's options as they were written.
struct PictureOptions {
    MixerShowing showing;
    std::string screen; ///< "WxH@S"; empty: as it is in `showing`
    std::vector<std::string> levels; ///< "SLOT=LEVEL"
    std::string wallpaper = "dusk"; ///< "dusk", "dawn" or a PNG file
    bool asViewed = false; ///< turned as the viewer holds the phone
    std::string resourceFolder;
    std::string outputFile; ///< "-": standard output
    std::optional<int> system; ///< 9 to 16; none: what 10 to 12 have
};

/// Complaints go to standard error, a line each.
ExitStatus drawPicture(PictureOptions options, const Library& library);

} // namespace panotra::sim
