/// Plane geometry of views.
#include "simulator/device/Geometry.h"

#include <cmath>

namespace panotra::sim {

Point apply(const Transform& transform, Point point)
{
    return {
        transform.a * point.x + transform.c * point.y + transform.tx,
        transform.b * point.x + transform.d * point.y + transform.ty,
    };
}

std::optional<Transform> inverse(const Transform& transform)
{
    const double scale = 1 / (transform.a * transform.d - transform.b * transform.c);
    if (!std::isfinite(scale))
        return std::nullopt;
    Transform result { transform.d * scale, -transform.b * scale, -transform.c * scale, transform.a * scale, 0, 0 };
    const Point origin = apply(result, { transform.tx, transform.ty });
    result.tx = -origin.x;
    result.ty = -origin.y;
    return result;
}

Size boundingSize(Size size, const Transform& transform)
{
    if (transform.b == 0 && transform.c == 0)
        return { std::abs(transform.a) * size.width, std::abs(transform.d) * size.height };
    const double width = std::abs(size.width);
    const double height = std::abs(size.height);
    return {
        std::abs(transform.a) * width + std::abs(transform.c) * height,
        std::abs(transform.b) * width + std::abs(transform.d) * height,
    };
}

} // namespace panotra::sim
