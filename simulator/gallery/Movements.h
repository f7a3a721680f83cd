/// What of the mixer moves, as strips of pictures and as films.
#pragma once

#include "simulator/gallery/Studio.h"

#include <string>
#include <vector>

namespace panotra::sim {

struct Movement {
    void (*begin)(Device& device); ///< the mixer has just been asked to appear
    double length; ///< seconds
    int slowness; ///< how much slower the film shows it
    /// Does what is done by hand, `part` of the way; null: it goes by itself.
    void (*go)(Device& device, double part);
    std::string (*caption)(Device& device, double time);
};

extern const Movement fadeIn;
extern const Movement fadeOut;
extern const Movement focus; ///< a slider swells while its level changes, and shrinks back
extern const Movement drag;

/// A row a style.
std::vector<SheetRow> stripsOfMovement(Studio& studio, const Movement& movement);
/// Both styles beside each other, as the bytes of a WebP file. Empty and the reason in `failure` if it cannot be.
std::string filmOfMovement(Studio& studio, const Movement& movement, std::string& failure);

} // namespace panotra::sim
