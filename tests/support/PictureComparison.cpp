/// Averages over squares, compared.
#include "tests/support/PictureComparison.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>

namespace panotra::testing {
namespace {

constexpr int squareSide = 4;
constexpr std::array shifts { 16, 8, 0 }; ///< red, green, blue

int channel(std::uint32_t pixel, int shift)
{
    return static_cast<int>(pixel >> shift & 0xff);
}

/// The largest difference of the averages over a square, in whole steps of 255.
int differenceIn(const render::Bitmap& one, const render::Bitmap& other, const render::PixelRect& square)
{
    std::array<int, 3> sums {};
    for (int y = square.y; y < square.y + square.height; ++y) {
        const auto rowOfOne = one.row(y).subspan(static_cast<std::size_t>(square.x));
        const auto rowOfOther = other.row(y).subspan(static_cast<std::size_t>(square.x));
        for (std::size_t x = 0; x < static_cast<std::size_t>(square.width); ++x) {
            for (std::size_t i = 0; i < shifts.size(); ++i)
                sums[i] += channel(rowOfOne[x], shifts[i]) - channel(rowOfOther[x], shifts[i]);
        }
    }
    int largest = 0;
    for (const int sum : sums)
        largest = std::max(largest, std::abs(sum) / (square.width * square.height));
    return largest;
}

std::string sizeOf(const render::Bitmap& picture)
{
    return std::to_string(picture.width()) + " by " + std::to_string(picture.height());
}

} // namespace

std::optional<std::string> firstDifference(const render::Bitmap& expected, const render::Bitmap& found)
{
    if (expected.extent() != found.extent())
        return "the picture is " + sizeOf(found) + " pixels, expected " + sizeOf(expected);
    int squares = 0;
    int largest = 0;
    render::PixelRect worst;
    for (int y = 0; y < found.height(); y += squareSide) {
        for (int x = 0; x < found.width(); x += squareSide) {
            const auto square = intersection({ x, y, squareSide, squareSide }, found.extent());
            const int difference = differenceIn(expected, found, square);
            squares += difference > pictureTolerance;
            if (difference > largest) {
                largest = difference;
                worst = square;
            }
        }
    }
    if (squares == 0)
        return std::nullopt;
    return std::to_string(squares) + " squares of " + std::to_string(squareSide) + " by " + std::to_string(squareSide)
        + " pixels differ by more than " + std::to_string(pictureTolerance) + " of 255, by " + std::to_string(largest)
        + " at (" + std::to_string(worst.x) + ", " + std::to_string(worst.y) + ")";
}

render::Bitmap differencePicture(const render::Bitmap& expected, const render::Bitmap& found)
{
    constexpr int amplification = 8;
    render::Bitmap picture(found.width(), found.height(), render::PixelFormat::Opaque);
    for (int y = 0; y < found.height(); ++y) {
        const auto row = picture.row(y);
        for (std::size_t x = 0; x < row.size(); ++x) {
            std::uint32_t pixel = 0;
            for (const int shift : shifts) {
                const int difference = std::abs(channel(expected.row(y)[x], shift) - channel(found.row(y)[x], shift));
                pixel |= static_cast<std::uint32_t>(std::min(difference * amplification, 255)) << shift;
            }
            row[x] = pixel;
        }
    }
    picture.markChanged();
    return picture;
}

} // namespace panotra::testing
