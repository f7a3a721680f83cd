/// The four skins: one look for the panel and for its sliders.
#pragma once

#include <algorithm>
#include <array>
#include <cstdint>

namespace panotra {

/// Red, green, blue, alpha from 0 to 1. Doubles, as the tables are written; the platform takes them as its own floats.
struct Rgba {
    double red;
    double green;
    double blue;
    double alpha;
    friend bool operator==(const Rgba&, const Rgba&) = default;
};

/// The panel's and the sliders' backdrop before any skin: a plain blur.
inline constexpr std::int64_t plainBackdropStyle = -2;
/// Every backdrop is asked for at the best quality.
inline constexpr std::int64_t backdropQuality = 100;

struct MixerSkin {
    const char* name; ///< as people choose it
    Rgba border;
    /// Material of the panel and of each slider's background.
    std::int64_t backdropStyle;
    /// Colour of titles, captions, percentages and icons.
    Rgba text;
    /// The blur is switched off and the backdrop painted black.
    bool isBlack;
};

inline constexpr std::array<MixerSkin, 4> mixerSkins { {
    { "Light", { 0.2, 0.2, 0.2, 0.15 }, 2010, { 0, 0, 0, 1 }, false },
    { "Dark", { 0.8, 0.8, 0.8, 0.15 }, 1001, { 0.9, 0.9, 0.9, 0.9 }, false },
    { "Darker", { 1, 1, 1, 0.15 }, 2050, { 1, 1, 1, 0.9 }, false },
    { "Black", { 1, 1, 1, 0.25 }, plainBackdropStyle, { 1, 1, 1, 1 }, true },
} };

/// By number.
inline constexpr auto mixerSkinNames = [] {
    std::array<const char*, mixerSkins.size()> names {};
    std::ranges::transform(mixerSkins, names.begin(), &MixerSkin::name);
    return names;
}();

/// The skin with that number, null for a number that names none: such a setting changes nothing.
constexpr const MixerSkin* findMixerSkin(std::uint16_t number)
{
    return number < mixerSkins.size() ? &mixerSkins[number] : nullptr;
}

} // namespace panotra
