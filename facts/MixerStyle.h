/// The two styles of the mixer, as the setting numbers them. Any other number shows an empty window.
#pragma once

#include <array>
#include <cstdint>

namespace panotra {

enum class MixerStyle : std::uint16_t {
    Panel = 0, ///< a centred panel over a full-screen blur
    Banner = 1, ///< a compact banner near the top
};

/// By number.
inline constexpr std::array mixerStyleNames { "Panel", "Banner" };

} // namespace panotra
