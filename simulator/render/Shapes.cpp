/// Transforms, pixel rectangles and outlines.
#include "simulator/render/Shapes.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace panotra::render {
namespace {

/// Turning leaves coordinates a hair beside the pixel edge on which they belong.
constexpr double slack = 0.001;

/// How far a continuous corner reaches along the edges, in corner radii.
constexpr double continuousReach = 1.528665;
constexpr int stepsPerCorner = 24;

/// The corner as a superellipse |u|^n + |v|^n = 1 over a square of `reach` by `reach`. The exponent is the one whose
/// curve comes as near to the corner as a circle of `radius` does; with nothing to spare (reach = radius) it is
/// that circle, with more the curvature grows from 0 at the ends, as continuous corners have it.
struct Corner {
    double reach;
    double exponent;

    Corner(double radius, double wantedReach)
        : reach(wantedReach)
        , exponent(std::numbers::ln2 / -std::log(1 - (1 - std::numbers::sqrt2 / 2) * radius / wantedReach))
    {
    }

    /// From (1, 0) at parameter 0 to (0, 1) at 1.
    Point at(double parameter) const
    {
        const double angle = parameter * std::numbers::pi / 2;
        return { std::pow(std::cos(angle), 2 / exponent), std::pow(std::sin(angle), 2 / exponent) };
    }
};

Corner cornerOf(const Shape& shape)
{
    const double half = std::min(shape.size.width, shape.size.height) / 2;
    const double radius = std::min(shape.cornerRadius, half);
    return { radius, shape.continuousCorners ? std::min(radius * continuousReach, half) : radius };
}

} // namespace

Transform compose(const Transform& outer, const Transform& inner)
{
    return {
        outer.a * inner.a + outer.c * inner.b,
        outer.b * inner.a + outer.d * inner.b,
        outer.a * inner.c + outer.c * inner.d,
        outer.b * inner.c + outer.d * inner.d,
        outer.a * inner.tx + outer.c * inner.ty + outer.tx,
        outer.b * inner.tx + outer.d * inner.ty + outer.ty,
    };
}

Transform rotation(double radians)
{
    const double cosine = std::cos(radians);
    const double sine = std::sin(radians);
    return { cosine, sine, -sine, cosine, 0, 0 };
}

cairo_matrix_t cairoMatrix(const Transform& transform)
{
    return { transform.a, transform.b, transform.c, transform.d, transform.tx, transform.ty };
}

bool PixelRect::covers(const PixelRect& other) const
{
    return other.isEmpty() || intersection(*this, other) == other;
}

PixelRect intersection(const PixelRect& one, const PixelRect& other)
{
    const int left = std::max(one.x, other.x);
    const int top = std::max(one.y, other.y);
    const int right = std::min(one.x + one.width, other.x + other.width);
    const int bottom = std::min(one.y + one.height, other.y + other.height);
    return right > left && bottom > top ? PixelRect { left, top, right - left, bottom - top } : PixelRect {};
}

PixelRect united(const PixelRect& one, const PixelRect& other)
{
    if (one.isEmpty())
        return other;
    if (other.isEmpty())
        return one;
    const int left = std::min(one.x, other.x);
    const int top = std::min(one.y, other.y);
    const int right = std::max(one.x + one.width, other.x + other.width);
    const int bottom = std::max(one.y + one.height, other.y + other.height);
    return { left, top, right - left, bottom - top };
}

std::array<Point, 4> Shape::corners() const
{
    return { sim::apply(transform, { 0, 0 }), sim::apply(transform, { size.width, 0 }),
        sim::apply(transform, { 0, size.height }), sim::apply(transform, { size.width, size.height }) };
}

PixelRect Shape::extent() const
{
    if (isEmpty())
        return {};
    const auto onScreen = corners();
    const auto [left, right] = std::ranges::minmax(onScreen, {}, &Point::x);
    const auto [top, bottom] = std::ranges::minmax(onScreen, {}, &Point::y);
    if (!std::isfinite(left.x + right.x + top.y + bottom.y))
        return {};
    // Far outside of every screen all the same, and within the range of an int.
    const auto pixel = [](double value) {
        return static_cast<int>(std::clamp(value, -1e6, 1e6));
    };
    const int x = pixel(std::floor(left.x + slack));
    const int y = pixel(std::floor(top.y + slack));
    return { x, y, pixel(std::ceil(right.x - slack)) - x, pixel(std::ceil(bottom.y - slack)) - y };
}

bool Shape::isStraight() const
{
    constexpr double straight = 1e-9;
    return std::abs(transform.b) + std::abs(transform.c) < straight
        || std::abs(transform.a) + std::abs(transform.d) < straight;
}

bool Shape::holds(const Shape& other) const
{
    const auto [a, b, c, d, tx, ty] = transform;
    const double area = a * d - b * c;
    if (isEmpty() || !(std::abs(area) > slack * slack))
        return false;
    // There the diagonal of a corner meets its curve; and a pixel, in the units of either side.
    const double corner = (1 - std::numbers::sqrt2 / 2) * std::min({ cornerRadius, size.width / 2, size.height / 2 });
    const double marginX = corner + std::hypot(c, d) / std::abs(area);
    const double marginY = corner + std::hypot(a, b) / std::abs(area);
    return std::ranges::all_of(other.corners(), [&](const Point& pixels) {
        const double x = (d * (pixels.x - tx) - c * (pixels.y - ty)) / area;
        const double y = (a * (pixels.y - ty) - b * (pixels.x - tx)) / area;
        return x >= marginX && x <= size.width - marginX && y >= marginY && y <= size.height - marginY;
    });
}

std::optional<Shape> Shape::inset(double distance) const
{
    const Shape inner { compose(transform, translation(distance, distance)),
        { size.width - 2 * distance, size.height - 2 * distance }, std::max(cornerRadius - distance, 0.0),
        continuousCorners };
    return inner.isEmpty() ? std::nullopt : std::optional(inner);
}

void addOutline(cairo_t* context, const Shape& shape)
{
    const auto [width, height] = shape.size;
    cairo_save(context);
    const cairo_matrix_t matrix = cairoMatrix(shape.transform);
    cairo_transform(context, &matrix);
    if (!shape.isRound()) {
        cairo_rectangle(context, 0, 0, width, height);
        cairo_restore(context);
        return;
    }

    // Clockwise from the right end of the top edge; each corner is the same curve, mirrored and walked the other
    // way round in every second one.
    struct Place {
        double x, y, directionX, directionY;
        bool backwards;
    };
    const std::array<Place, 4> places { { { width, 0, 1, -1, true }, { width, height, 1, 1, false },
        { 0, height, -1, 1, true }, { 0, 0, -1, -1, false } } };
    const Corner corner = cornerOf(shape);
    std::array<Point, stepsPerCorner + 1> curve;
    for (std::size_t step = 0; step < curve.size(); ++step)
        curve[step] = corner.at(static_cast<double>(step) / stepsPerCorner);
    cairo_new_sub_path(context);
    for (const Place& place : places) {
        const double centerX = place.x - place.directionX * corner.reach;
        const double centerY = place.y - place.directionY * corner.reach;
        for (std::size_t step = 0; step < curve.size(); ++step) {
            const Point& on = curve[place.backwards ? curve.size() - 1 - step : step];
            cairo_line_to(context, centerX + place.directionX * corner.reach * on.x,
                centerY + place.directionY * corner.reach * on.y);
        }
    }
    cairo_close_path(context);
    cairo_restore(context);
}

} // namespace panotra::render
