/// The known skins as the simulated device shows them.
#pragma once

#include "simulator/device/View.h"
#include "tests/support/KnownFacts.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace panotra::testing {

struct SkinLook {
    std::uint16_t skin;
    sim::Rgba border;
    std::int64_t style; ///< of the backdrop
    double effectAlpha; ///< likewise
    std::optional<sim::Rgba> background; ///< likewise
    sim::Rgba text;
};

inline sim::Rgba colorOf(const KnownColor& known)
{
    return { known.red, known.green, known.blue, known.alpha };
}

inline std::vector<SkinLook> skinLooks()
{
    constexpr sim::Rgba black { 0, 0, 0, 1 };
    std::vector<SkinLook> looks;
    for (const KnownSkin& skin : knownSkins) {
        looks.push_back({ skin.number, colorOf(skin.border), skin.backdropStyle, skin.isBlack ? 0.0 : 1.0,
            skin.isBlack ? std::optional(black) : std::nullopt, colorOf(skin.text) });
    }
    return looks;
}

} // namespace panotra::testing
