/// The library's median cut over what was seen, and an ordered dither.
#include "simulator/film/GifPalette.h"

#include <algorithm>
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
    // One of sixteen pixels tells enough.
    constexpr int stride = 4;
    for (int y = stride / 2; y < frame.height(); y += stride) {
        const auto row = frame.row(y);
        for (std::size_t x = stride / 2; x < row.size(); x += stride) {
            m_red.push_back(static_cast<GifByteType>(redOf(row[x])));
            m_green.push_back(static_cast<GifByteType>(greenOf(row[x])));
            m_blue.push_back(static_cast<GifByteType>(blueOf(row[x])));
        }
    }
}

bool GifPalette::choose()
{
    m_nearest.assign(std::size_t { 1 } << (3 * bits), -1);
    std::vector<GifByteType> indices(m_red.size());
    int count = colors;
    const bool isChosen = !m_red.empty()
        && GifQuantizeBuffer(static_cast<unsigned>(m_red.size()), 1, &count, m_red.data(), m_green.data(),
               m_blue.data(), indices.data(), m_table.data())
            == GIF_OK;
    m_red = m_green = m_blue = {};
    return isChosen;
}

std::uint8_t GifPalette::colorOf(std::uint32_t pixel, int x, int y)
{
    const int red = dithered(redOf(pixel), x, y);
    const int green = dithered(greenOf(pixel), x, y);
    const int blue = dithered(blueOf(pixel), x, y);
    const int place = (red / step << (2 * bits)) | (green / step << bits) | blue / step;
    std::int16_t& nearest = m_nearest[static_cast<std::size_t>(place)];
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
