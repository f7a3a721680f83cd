/// The orientations of the interface, by the platform's numbers. 0 stands for unknown.
#pragma once

#include <array>
#include <cstdint>

namespace panotra {

struct InterfaceOrientation {
    std::int64_t number;
    const char* name; ///< the platform's; the interface's top is where the device's left or right side is
};

inline constexpr std::array<InterfaceOrientation, 4> interfaceOrientations { {
    { 1, "Portrait" },
    { 2, "Upside-Down" },
    { 3, "Landscape-Right" },
    { 4, "Landscape-Left" },
} };

} // namespace panotra
