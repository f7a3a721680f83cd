/// Plane geometry of drawing: transforms put together, rectangles of whole pixels, and the outlines of views.
#pragma once

#include "simulator/device/Geometry.h"
#include "simulator/render/Handles.h"

#include <array>
#include <optional>

namespace panotra::render {

using sim::Point;
using sim::Size;
using sim::Transform;

/// First `inner`, then `outer`.
Transform compose(const Transform& outer, const Transform& inner);
inline Transform translation(double x, double y)
{
    return { 1, 0, 0, 1, x, y };
}
inline Transform scaling(double factor)
{
    return { factor, 0, 0, factor, 0, 0 };
}
/// Clockwise on the screen, about the origin.
Transform rotation(double radians);
cairo_matrix_t cairoMatrix(const Transform& transform);

/// Whole pixels of the screen: x and y are the first ones in it. Empty unless both sizes are above 0.
struct PixelRect {
    int x = 0, y = 0, width = 0, height = 0;
    friend bool operator==(const PixelRect&, const PixelRect&) = default;

    bool isEmpty() const { return width <= 0 || height <= 0; }
    bool covers(const PixelRect& other) const;
};

PixelRect intersection(const PixelRect& one, const PixelRect& other);
/// The smallest rectangle around both; an empty one adds nothing.
PixelRect united(const PixelRect& one, const PixelRect& other);

/// A rectangle of `size` at the origin, taken through the transform to pixels; its corners may be round.
struct Shape {
    Transform transform;
    Size size;
    double cornerRadius = 0; ///< in the rectangle's own units; more than half the shorter side counts as half
    bool continuousCorners = false;
    friend bool operator==(const Shape&, const Shape&) = default;

    bool isEmpty() const { return !(size.width > 0 && size.height > 0); }
    bool isRound() const { return cornerRadius > 0; }
    /// Of the rectangle, in pixels.
    std::array<Point, 4> corners() const;
    /// Every pixel that the shape touches. A sliver thinner than a thousandth of a pixel does not count.
    PixelRect extent() const;
    /// Whether its edges are those of pixels, or would be in a finer grid.
    bool isStraight() const;
    /// Whether the other lies in it, a pixel away from its edge and out of its corners.
    bool holds(const Shape& other) const;
    /// The shape inside this one whose edge runs `distance` (in its own units) away; none if nothing is left.
    std::optional<Shape> inset(double distance) const;
    /// Whether both cover the same rectangle, whatever their corners.
    bool hasSameBox(const Shape& other) const { return transform == other.transform && size == other.size; }
};

/// Adds the shape's outline to the path of a context whose own transform is the identity.
void addOutline(cairo_t* context, const Shape& shape);

} // namespace panotra::render
