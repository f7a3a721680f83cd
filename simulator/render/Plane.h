/// The blur's pixels: each is four numbers in one register.
#pragma once

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace panotra::render {

static_assert(std::endian::native == std::endian::little, "a pixel's bytes are blue, green, red and an unused one");

/// Blue, green, red and unused, from 0 to 255.
using Floats = float __attribute__((vector_size(16)));
using Integers = std::int32_t __attribute__((vector_size(16)));
/// Two pixels at once.
using Words = std::uint16_t __attribute__((vector_size(16)));
using FourWords = std::uint16_t __attribute__((vector_size(8)));
using Bytes = std::uint8_t __attribute__((vector_size(8)));

struct Pixel {
    Floats lanes;
};

/// A picture to calculate with.
class Plane {
public:
    Plane(int width, int height)
        : m_width(width)
        , m_height(height)
        , m_pixels(static_cast<std::size_t>(width) * static_cast<std::size_t>(height))
    {
    }
    int width() const { return m_width; }
    int height() const { return m_height; }
    Pixel* row(int y) { return m_pixels.data() + static_cast<std::ptrdiff_t>(y) * m_width; }
    const Pixel* row(int y) const { return m_pixels.data() + static_cast<std::ptrdiff_t>(y) * m_width; }
    /// Beyond the first or last row the plane goes on as that row.
    const Pixel* nearestRow(int y) const { return row(std::clamp(y, 0, m_height - 1)); }
    std::vector<Pixel>& pixels() { return m_pixels; }

private:
    int m_width;
    int m_height;
    std::vector<Pixel> m_pixels;
};

inline Floats spread(float value)
{
    return Floats { value, value, value, value };
}

inline Floats spread(double value)
{
    return spread(static_cast<float>(value));
}

} // namespace panotra::render
