/// How the backdrop styles look: what they do to the colours of what lies behind them.
#pragma once

#include <cstdint>

namespace panotra::render {

/// Red, green, blue from 0 to 1.
struct Tint {
    double red, green, blue;
    double alpha; ///< 0: the tint is not seen; 1: nothing else is
    friend bool operator==(const Tint&, const Tint&) = default;
};

/// A backdrop blurs what lies behind it, then saturates it, then multiplies it by its brightness, then lays its
/// tint over it.
struct Material {
    double blurRadius; ///< points, unless the backdrop is given a radius of its own
    double saturation; ///< 1 leaves colours as they are, 0 takes them away
    double brightness; ///< 1 leaves them as light as they are
    Tint tint;
    friend bool operator==(const Material&, const Material&) = default;

    /// A material that only blurs.
    bool keepsColors() const { return saturation == 1 && brightness == 1 && tint.alpha == 0; }
};

/// The material of a backdrop style. A style that nobody asks for is a plain blur.
Material materialOfStyle(std::int64_t style);

} // namespace panotra::render
