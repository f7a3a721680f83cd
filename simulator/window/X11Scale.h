/// How fine an X server's display is, as its desktop has left it there.
#pragma once

#include <optional>
#include <string_view>

namespace panotra::sim {

/// The dots an inch of fonts in the server's resources, "Xft.dpi: 192"; none where it is not there or no number.
std::optional<double> dotsAnInch(std::string_view resources);

/// Of the server that DISPLAY names: 1 for 96 dots an inch, from 1 to 4; 1 where nobody has said anything.
double scaleOfX11();

} // namespace panotra::sim
