/// The four skins: one look for the panel and for its sliders.
#pragma once

#include <array>
#include <cstdint>

namespace panotra {

/// Red, green, blue, alpha from 0 to 1. Doubles, as the tables are written; the platform takes them as its own floats.
struct Rgba {
    double red;
    double green;
    double blue;
    double alpha;
};

/// The panel's and the sliders' backdrop before any skin: a plain blur.
inline constexpr std::int64_t plainBackdropStyle = -2;
/// Every backdrop is asked for at the best quality.
inline constexpr std::int64_t backdropQuality = 100;

struct MixerSkin {
    Rgba border;
    /// Material of the panel and of each slider's background.
    std::int64_t backdropStyle;
    /// Colour of titles, captions, percentages and icons.
    Rgba text;
    /// The blur is switched off and the backdrop painted black.
    bool isBlack;
};

inline constexpr std::array<MixerSkin, 4> mixerSkins { {
    { { 0.2, 0.2, 0.2, 0.15 }, 2010, { 0, 0, 0, 1 }, false },
    { { 0.8, 0.8, 0.8, 0.15 }, 1001, { 0.9, 0.9, 0.9, 0.9 }, false },
    { { 1, 1, 1, 0.15 }, 2050, { 1, 1, 1, 0.9 }, false },
    { { 1, 1, 1, 0.25 }, plainBackdropStyle, { 1, 1, 1, 1 }, true },
} };

/// The skin with that number, null for a number that names none: such a setting changes nothing.
constexpr const MixerSkin* findMixerSkin(std::uint16_t number)
{
    return number < mixerSkins.size() ? &mixerSkins[number] : nullptr;
}

} // namespace panotra
