/// Interpolation with whole numbers: first along the rows of the smaller picture, then down between them, four pixels
/// at once.
#include "simulator/render/Enlarge.h"

#include <array>
#include <cstring>
#include <utility>

namespace panotra::render {
namespace {

/// Four pixels at once.
using ManyBytes = std::uint8_t __attribute__((vector_size(16)));

/// A row of the smaller picture made as wide as the larger one: 8 bits and a fraction of 8 bits, four times a pixel.
using Line = std::vector<std::uint16_t>;

constexpr std::size_t lanesInPixel = 4;
/// As many pixels as are written at once.
constexpr int groupWidth = 4;

FourWords fixedPoint(Floats lanes)
{
    return __builtin_convertvector(__builtin_convertvector(lanes * spread(256.0F), Integers), FourWords);
}

/// What half a pixel adds on the way between two values that stand `factor` pixels apart. They are divided one by
/// one because their difference has more bits than a word.
template <int factor, typename Vector> Vector halfStep(Vector from, Vector to)
{
    return to / (2 * factor) - from / (2 * factor);
}

/// `line` gets `factor` pixels for each pair of neighbours. The first and the last pixel of the row go on to the
/// edges, half a block further out.
template <int factor> void expandRow(const Pixel* row, int width, Line& line)
{
    std::uint16_t* to = line.data();
    FourWords begin = fixedPoint(row[0].lanes);
    for (int i = 0; i <= width; ++i) {
        const FourWords end = fixedPoint(row[std::min(i, width - 1)].lanes);
        const FourWords step = halfStep<factor>(begin, end);
        FourWords value = begin + step;
        for (int written = 0; written < factor; ++written, to += lanesInPixel) {
            std::memcpy(to, &value, sizeof value);
            value += step + step;
        }
        begin = end;
    }
}

/// Writes the first `count` pixels of a group, at `x` of the `factor` rows between two lines.
template <int factor>
[[gnu::always_inline]] inline void writeGroup(
    const std::uint16_t* upper, const std::uint16_t* lower, std::uint32_t* const* rows, int x, int count)
{
    constexpr std::uint16_t half = 128; // to the nearest when the fraction is cut off
    std::array<Words, 2> above;
    std::array<Words, 2> below;
    std::memcpy(above.data(), upper + static_cast<std::size_t>(x) * lanesInPixel, sizeof above);
    std::memcpy(below.data(), lower + static_cast<std::size_t>(x) * lanesInPixel, sizeof below);
    const Words firstStep = halfStep<factor>(above[0], below[0]);
    const Words secondStep = halfStep<factor>(above[1], below[1]);
    Words first = above[0] + firstStep + half;
    Words second = above[1] + secondStep + half;
    for (int i = 0; i < factor; ++i) {
        const ManyBytes bytes = __builtin_shufflevector(reinterpret_cast<ManyBytes>(first),
            reinterpret_cast<ManyBytes>(second), 1, 3, 5, 7, 9, 11, 13, 15, 17, 19, 21, 23, 25, 27, 29, 31);
        std::memcpy(rows[i] + x, &bytes, static_cast<std::size_t>(count) * sizeof(std::uint32_t));
        first += firstStep + firstStep;
        second += secondStep + secondStep;
    }
}

template <int factor> void interpolate(const Plane& plane, Bitmap& bitmap)
{
    const auto lineLength = static_cast<std::size_t>((plane.width() + 1) * factor + groupWidth) * lanesInPixel;
    constexpr std::size_t left = factor / 2 * lanesInPixel;
    const int width = bitmap.width();
    Line upper(lineLength);
    Line lower(lineLength);
    std::vector<std::uint32_t> outside(static_cast<std::size_t>(width));
    expandRow<factor>(plane.row(0), plane.width(), lower);
    for (int y = 0; y <= plane.height(); ++y) {
        std::swap(upper, lower);
        expandRow<factor>(plane.nearestRow(y), plane.width(), lower);
        std::array<std::uint32_t*, factor> rows;
        for (int i = 0; i < factor; ++i) {
            const int place = y * factor - factor / 2 + i;
            const bool isInside = place >= 0 && place < bitmap.height();
            rows[static_cast<std::size_t>(i)] = isInside ? bitmap.row(place).data() : outside.data();
        }
        int x = 0;
        for (; x + groupWidth <= width; x += groupWidth)
            writeGroup<factor>(upper.data() + left, lower.data() + left, rows.data(), x, groupWidth);
        if (x < width)
            writeGroup<factor>(upper.data() + left, lower.data() + left, rows.data(), x, width - x);
    }
}

void copyRounded(const Plane& plane, Bitmap& bitmap)
{
    for (int y = 0; y < bitmap.height(); ++y) {
        const auto row = bitmap.row(y);
        const Pixel* const from = plane.row(y);
        for (std::size_t x = 0; x < row.size(); ++x) {
            const Integers lanes = __builtin_convertvector(from[x].lanes + spread(0.5F), Integers);
            row[x] = static_cast<std::uint32_t>(lanes[0] | lanes[1] << 8 | lanes[2] << 16);
        }
    }
}

} // namespace

void enlarge(const Plane& plane, int factor, Bitmap& bitmap)
{
    switch (factor) {
    case 8:
        interpolate<8>(plane, bitmap);
        break;
    case 4:
        interpolate<4>(plane, bitmap);
        break;
    case 2:
        interpolate<2>(plane, bitmap);
        break;
    default:
        copyRounded(plane, bitmap);
        break;
    }
}

} // namespace panotra::render
