/// The blur: the area is made smaller by a factor that the blur can afford, blurred there by three box filters in
/// each direction, coloured, and made larger again.
#include "simulator/render/Blur.h"

#include "simulator/render/Enlarge.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <utility>
#include <vector>

namespace panotra::render {
namespace {

// How much smaller the blur can be worked out.

constexpr int largestFactor = 8;
/// The standard deviation, in pixels of the smaller picture, below which its coarseness would be seen.
constexpr double leastSigmaWhenReduced = 1.75;

int factorFor(double sigma)
{
    int factor = largestFactor;
    while (factor > 1 && sigma < factor * leastSigmaWhenReduced)
        factor /= 2;
    return factor;
}

/// The variance that is left to do in the smaller picture: averaging blocks and interpolating between them blur by
/// themselves, as a box and a triangle do.
double remainingVariance(double sigma, int factor)
{
    const double scale = factor;
    const double done = factor == 1 ? 0 : (scale * scale - 1) / 12 + scale * scale / 6;
    return (sigma * sigma - done) / (scale * scale);
}

// Smaller.

Floats sumOfBlock(const Bitmap& behind, const PixelRect& block)
{
    Floats sum {};
    for (int y = block.y; y < block.y + block.height; ++y) {
        const auto row = behind.row(y).subspan(static_cast<std::size_t>(block.x));
        for (std::size_t x = 0; x < static_cast<std::size_t>(block.width); ++x) {
            const std::uint32_t pixel = row[x];
            sum += Floats { static_cast<float>(pixel & 0xff), static_cast<float>(pixel >> 8 & 0xff),
                static_cast<float>(pixel >> 16 & 0xff), 0 };
        }
    }
    return sum;
}

/// The averages of the row of whole blocks that starts at (x, y).
template <int factor> void averageBlocks(const Bitmap& behind, int x, int y, Pixel* averages, int count)
{
    const std::uint32_t* rows[factor];
    for (int i = 0; i < factor; ++i)
        rows[i] = behind.row(y + i).data() + x;
    for (int block = 0; block < count; ++block) {
        Words sum {};
        for (int i = 0; i < factor; ++i) {
            for (int pair = 0; pair < factor / 2; ++pair) {
                Bytes bytes;
                std::memcpy(&bytes, rows[i] + block * factor + pair * 2, sizeof bytes);
                sum += __builtin_convertvector(bytes, Words);
            }
        }
        const FourWords both
            = __builtin_shufflevector(sum, sum, 0, 1, 2, 3) + __builtin_shufflevector(sum, sum, 4, 5, 6, 7);
        averages[block].lanes = __builtin_convertvector(both, Floats) * spread(1.0 / (factor * factor));
    }
}

template <int factor> void averageWholeBlocks(const Bitmap& behind, const PixelRect& area, Plane& plane)
{
    for (int y = 0; y < area.height / factor; ++y)
        averageBlocks<factor>(behind, area.x, area.y + y * factor, plane.row(y), area.width / factor);
}

Plane unreduced(const Bitmap& behind, const PixelRect& area)
{
    Plane plane(area.width, area.height);
    for (int y = 0; y < area.height; ++y) {
        const std::uint32_t* const from = behind.row(area.y + y).data() + area.x;
        Pixel* const to = plane.row(y);
        for (int x = 0; x < area.width; ++x) {
            const auto pixel = static_cast<std::int32_t>(from[x]);
            const Integers lanes { pixel & 0xff, pixel >> 8 & 0xff, pixel >> 16 & 0xff, 0 };
            to[x].lanes = __builtin_convertvector(lanes, Floats);
        }
    }
    return plane;
}

Plane reduced(const Bitmap& behind, const PixelRect& area, int factor)
{
    if (factor == 1)
        return unreduced(behind, area);
    const auto blocks = [factor](int pixels) {
        return (pixels + factor - 1) / factor;
    };
    Plane plane(blocks(area.width), blocks(area.height));
    const int wholeColumns = area.width / factor;
    const int wholeRows = area.height / factor;
    switch (factor) {
    case 8:
        averageWholeBlocks<8>(behind, area, plane);
        break;
    case 4:
        averageWholeBlocks<4>(behind, area, plane);
        break;
    default:
        averageWholeBlocks<2>(behind, area, plane);
        break;
    }
    // What is left at the right and at the bottom.
    for (int y = 0; y < plane.height(); ++y) {
        for (int x = y < wholeRows ? wholeColumns : 0; x < plane.width(); ++x) {
            const PixelRect block = intersection({ area.x + x * factor, area.y + y * factor, factor, factor }, area);
            plane.row(y)[x].lanes = sumOfBlock(behind, block) * spread(1.0 / (block.width * block.height));
        }
    }
    return plane;
}

// Blurred.

/// A box filter whose two outermost pixels count in part, so that its variance is any number and not only that of
/// an odd width: an animated blur then moves without steps.
struct Box {
    int radius; ///< whole pixels on either side
    float endWeight; ///< of the pixels next to them, as a part of a whole pixel's
    float scale; ///< one over the sum of the weights

    explicit Box(double variance)
        : radius(static_cast<int>((std::sqrt(12 * variance + 1) - 1) / 2))
    {
        const double r = radius;
        const double end = (2 * r + 1) * (r * (r + 1) - 3 * variance) / (6 * (variance - (r + 1) * (r + 1)));
        endWeight = static_cast<float>(end);
        scale = static_cast<float>(1 / (2 * r + 1 + 2 * end));
    }
};

/// Three boxes one after the other are close to a Gaussian.
constexpr int passes = 3;

void blurRows(Plane& plane, const Box& box)
{
    const int margin = box.radius + 1;
    std::vector<Pixel> line(static_cast<std::size_t>(plane.width() + 2 * margin));
    const auto blurOnce = [&](Pixel* row) {
        std::fill_n(line.begin(), margin, row[0]);
        std::copy_n(row, plane.width(), line.begin() + margin);
        std::fill_n(line.end() - margin, margin, row[plane.width() - 1]);
        Floats sum {};
        for (int x = 0; x < 2 * box.radius + 1; ++x)
            sum += line[static_cast<std::size_t>(x) + 1].lanes;
        const Pixel* before = line.data();
        const Pixel* after = line.data() + 2 * margin;
        for (int x = 0; x < plane.width(); ++x, ++before, ++after) {
            row[x].lanes = (sum + (before->lanes + after->lanes) * spread(box.endWeight)) * spread(box.scale);
            sum += after->lanes - before[1].lanes;
        }
    };
    for (int y = 0; y < plane.height(); ++y) {
        for (int pass = 0; pass < passes; ++pass)
            blurOnce(plane.row(y));
    }
}

/// From one plane to another of the same size.
void blurColumnsOnce(const Plane& from, Plane& to, const Box& box)
{
    std::vector<Pixel> sums(static_cast<std::size_t>(from.width()));
    for (int y = -box.radius; y <= box.radius; ++y) {
        const Pixel* const row = from.nearestRow(y);
        for (std::size_t x = 0; x < sums.size(); ++x)
            sums[x].lanes += row[x].lanes;
    }
    for (int y = 0; y < from.height(); ++y) {
        const Pixel* const above = from.nearestRow(y - box.radius - 1);
        const Pixel* const first = from.nearestRow(y - box.radius);
        const Pixel* const below = from.nearestRow(y + box.radius + 1);
        Pixel* const row = to.row(y);
        for (std::size_t x = 0; x < sums.size(); ++x) {
            row[x].lanes
                = (sums[x].lanes + (above[x].lanes + below[x].lanes) * spread(box.endWeight)) * spread(box.scale);
            sums[x].lanes += below[x].lanes - first[x].lanes;
        }
    }
}

/// In strips so narrow that the processor's cache holds one from pass to pass.
void blurColumns(Plane& plane, const Box& box)
{
    constexpr int stripWidth = 8;
    for (int x = 0; x < plane.width(); x += stripWidth) {
        const int width = std::min(stripWidth, plane.width() - x);
        Plane strip(width, plane.height());
        Plane blurred(width, plane.height());
        for (int y = 0; y < plane.height(); ++y)
            std::copy_n(plane.row(y) + x, width, strip.row(y));
        for (int pass = 0; pass < passes; ++pass) {
            blurColumnsOnce(strip, blurred, box);
            std::swap(strip, blurred);
        }
        for (int y = 0; y < plane.height(); ++y)
            std::copy_n(strip.row(y), width, plane.row(y) + x);
    }
}

void blur(Plane& plane, double variance)
{
    if (!(variance > 0))
        return;
    const Box box(variance / passes);
    blurRows(plane, box);
    blurColumns(plane, box);
}

// Coloured.

void color(Plane& plane, const Material& material)
{
    // The lightness that the eye sees in each primary.
    constexpr float red = 0.2126F;
    constexpr float green = 0.7152F;
    constexpr float blue = 0.0722F;
    const Tint& tint = material.tint;
    const Floats saturation = spread(material.saturation);
    const Floats kept = spread(material.brightness * (1 - tint.alpha));
    const Floats added
        = Floats { static_cast<float>(tint.blue), static_cast<float>(tint.green), static_cast<float>(tint.red), 0 }
        * spread(255 * tint.alpha);
    for (Pixel& pixel : plane.pixels()) {
        const Floats lanes = pixel.lanes;
        const Floats lightness = spread(lanes[0] * blue + lanes[1] * green + lanes[2] * red);
        const Floats colored = (lightness + (lanes - lightness) * saturation) * kept + added;
        const Floats notBelow = colored > spread(0.0F) ? colored : spread(0.0F);
        pixel.lanes = notBelow < spread(255.0F) ? notBelow : spread(255.0F);
    }
}

} // namespace

Bitmap seenThrough(const Bitmap& behind, const PixelRect& area, double sigma, const Material& material)
{
    Bitmap bitmap = Bitmap::uncleared(area.width, area.height, PixelFormat::Opaque);
    // A wider blur would average the edges, which go on for ever, and nothing else.
    const double widest = std::max(area.width, area.height);
    const int factor = factorFor(sigma);
    Plane plane = reduced(behind, area, factor);
    blur(plane, remainingVariance(std::min(sigma, widest), factor));
    if (!material.keepsColors())
        color(plane, material);
    enlarge(plane, factor, bitmap);
    bitmap.markChanged();
    return bitmap;
}

} // namespace panotra::render
