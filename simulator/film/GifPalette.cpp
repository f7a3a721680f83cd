/// The library's median cut over the colours that were seen, and an ordered dither.
#include "simulator/film/GifPalette.h"

#include <algorithm>
#include <bit>
#include <limits>

namespace panotra::sim {

namespace {

constexpr int bits = 5; ///< of a colour that are looked at when the nearest one is looked for
constexpr int step = 1 << (8 - bits);

int redOf(std::uint32_t pixel)
{
    return static_cast<int>(pixel >> 16 & 0xffU);
}

int greenOf(std::uint32_t pixel)
{
    return static_cast<int>(pixel >> 8 & 0xffU);
}

int blueOf(std::uint32_t pixel)
{
    return static_cast<int>(pixel & 0xffU);
}

constexpr std::size_t places = std::size_t { 1 } << (3 * bits);

std::size_t placeOf(int red, int green, int blue)
{
    return static_cast<std::size_t>((red / step << (2 * bits)) | (green / step << bits) | blue / step);
}

/// Thresholds of an ordered dither, spread so that no two that follow each other are neighbours.
constexpr std::array<std::array<int, 4>, 4> thresholds { { { 0, 8, 2, 10 }, { 12, 4, 14, 6 }, { 3, 11, 1, 9 },
    { 15, 7, 13, 5 } } };

int dithered(int value, int x, int y)
{
    constexpr int levels = 16;
    const int threshold = thresholds[static_cast<std::size_t>(y % 4)][static_cast<std::size_t>(x % 4)];
    return std::clamp(value + threshold * 2 * step / levels - step, 0, 255);
}

} // namespace

void GifPalette::see(const render::Bitmap& frame)
{
    m_seen.resize(places);
    // One of sixteen pixels tells enough.
    constexpr std::size_t stride = 4;
    for (int y = 0; y < frame.height(); y += static_cast<int>(stride)) {
        const auto row = frame.row(y);
        for (std::size_t x = 0; x < row.size(); x += stride)
            ++m_seen[placeOf(redOf(row[x]), greenOf(row[x]), blueOf(row[x]))];
    }
}

bool GifPalette::choose()
{
    m_nearest.assign(places, -1);
    // What fills half the film is one colour, too: each counts as often as its number has digits.
    std::vector<GifByteType> red;
    std::vector<GifByteType> green;
    std::vector<GifByteType> blue;
    for (std::size_t place = 0; place < m_seen.size(); ++place) {
        const auto times = static_cast<std::size_t>(std::bit_width(m_seen[place]));
        const auto middle = [place](int shift) {
            return static_cast<GifByteType>((place >> shift) % (1U << bits) * step + step / 2);
        };
        red.insert(red.end(), times, middle(2 * bits));
        green.insert(green.end(), times, middle(bits));
        blue.insert(blue.end(), times, middle(0));
    }
    std::vector<GifByteType> indices(red.size());
    int count = colors;
    return !red.empty()
        && GifQuantizeBuffer(static_cast<unsigned>(red.size()), 1, &count, red.data(), green.data(), blue.data(),
               indices.data(), m_table.data())
        == GIF_OK;
}

std::uint8_t GifPalette::colorOf(std::uint32_t pixel, int x, int y)
{
    const int red = dithered(redOf(pixel), x, y);
    const int green = dithered(greenOf(pixel), x, y);
    const int blue = dithered(blueOf(pixel), x, y);
    std::int16_t& nearest = m_nearest[placeOf(red, green, blue)];
    if (nearest >= 0)
        return static_cast<std::uint8_t>(nearest);
    int least = std::numeric_limits<int>::max();
    for (std::size_t index = 0; index < m_table.size(); ++index) {
        const auto distance = [](int one, int other) {
            const int difference = one - other;
            return difference * difference;
        };
        // The middle of all that share the place.
        const int away = distance(red / step * step + step / 2, m_table[index].Red)
            + distance(green / step * step + step / 2, m_table[index].Green)
            + distance(blue / step * step + step / 2, m_table[index].Blue);
        if (away < least) {
            least = away;
            nearest = static_cast<std::int16_t>(index);
        }
    }
    return static_cast<std::uint8_t>(nearest);
}

} // namespace panotra::sim
