/// Turning pictures by quarters.
#include "simulator/render/Orientation.h"

#include <numbers>
#include <utility>

namespace panotra::render {

double interfaceAngle(std::int64_t orientation)
{
    constexpr double quarter = std::numbers::pi / 2;
    switch (orientation) {
    case 2:
        return 2 * quarter;
    case 3:
        return quarter;
    case 4:
        return -quarter;
    default:
        return 0;
    }
}

Bitmap asViewed(const Bitmap& screen, std::int64_t orientation)
{
    int width = screen.width();
    int height = screen.height();
    const double middleX = width / 2.0;
    const double middleY = height / 2.0;
    if (orientation == 3 || orientation == 4)
        std::swap(width, height);
    Bitmap turned(width, height, PixelFormat::Opaque);
    const auto context = turned.makeContext();
    cairo_translate(context.get(), width / 2.0, height / 2.0);
    cairo_rotate(context.get(), -interfaceAngle(orientation));
    cairo_set_source_surface(context.get(), screen.surface(), -middleX, -middleY);
    cairo_pattern_set_filter(cairo_get_source(context.get()), CAIRO_FILTER_NEAREST); // pixel for pixel
    cairo_paint(context.get());
    return turned;
}

} // namespace panotra::render
