/// The colours beside the phone: dark and calm, one accent.
#pragma once

#include "simulator/device/View.h"

#include <cstdint>

namespace panotra::sim::palette {

/// 0xRRGGBB
constexpr Rgba color(std::uint32_t web, double alpha = 1)
{
    return { static_cast<double>(web >> 16 & 0xff) / 255, static_cast<double>(web >> 8 & 0xff) / 255,
        static_cast<double>(web & 0xff) / 255, alpha };
}

inline constexpr Rgba surround = color(0x14161b);
inline constexpr Rgba card = color(0x1b1e25);
inline constexpr Rgba edge = color(0x2a2e38);
inline constexpr Rgba button = color(0x23272f);
inline constexpr Rgba hovered = color(0x2c313b);
inline constexpr Rgba keyCap = color(0x333944);
inline constexpr Rgba track = color(0x2c313b);
inline constexpr Rgba text = color(0xe6e9ef);
inline constexpr Rgba dim = color(0x8d95a5);
inline constexpr Rgba accent = color(0x5aa9ff);
inline constexpr Rgba accentDark = color(0x23425f);
inline constexpr Rgba bright = color(0xffffff);
inline constexpr Rgba black = color(0x000000);
inline constexpr Rgba red = color(0xff453a);
inline constexpr Rgba finger = color(0xffffff, 0.45);
inline constexpr Rgba fingerEdge = color(0x000000, 0.35);
inline constexpr Rgba inspected = color(0x5aa9ff, 0.16);
inline constexpr Rgba clear = color(0x000000, 0);
inline constexpr Rgba body = color(0x0a0b0d);
inline constexpr Rgba bodyEdge = color(0x3c414d);
inline constexpr Rgba scrim = color(0x0b0c0f, 0.72);

} // namespace panotra::sim::palette
