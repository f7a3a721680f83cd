/// How large the mixer is before it is scaled, by the screen, and up to which scale a screen holds all of it.
#pragma once

#include <algorithm>

namespace panotra {

struct MixerSize {
    double width, height; ///< points
};

/// That of the panel upright: as on the smallest phone, and smaller still on a screen just as wide or high. The banner
/// is as wide, and lower.
constexpr MixerSize mixerSizeOn(double screenWidth, double screenHeight)
{
    return { screenWidth == 320 ? 300.0 : 320.0, screenHeight == 480 ? 440.0 : 480.0 };
}

/// The largest scale at which the panel is not cut off, upright or on its side.
constexpr double mostMixerScale(double screenWidth, double screenHeight)
{
    const MixerSize size = mixerSizeOn(screenWidth, screenHeight);
    return std::min(screenWidth / size.width, screenHeight / size.height);
}

} // namespace panotra
