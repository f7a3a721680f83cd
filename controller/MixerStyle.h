/// The two styles of the mixer, as the setting numbers them. Any other number shows an empty window.
#pragma once

#include <cstdint>

namespace panotra {

inline constexpr std::uint16_t panelStyle = 0; ///< a centred panel over a full-screen blur
inline constexpr std::uint16_t bannerStyle = 1; ///< a compact banner near the top

} // namespace panotra
