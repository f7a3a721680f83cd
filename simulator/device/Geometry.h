/// Plane geometry of views, in points: x grows to the right, y downwards. Everything here is a pure function.
#pragma once

#include <optional>

namespace panotra::sim {

struct Point {
    double x = 0, y = 0;
    friend bool operator==(const Point&, const Point&) = default;
};

/// May be negative: nothing here standardises a rectangle.
struct Size {
    double width = 0, height = 0;
    friend bool operator==(const Size&, const Size&) = default;
};

struct Rect {
    double x = 0, y = 0, width = 0, height = 0;
    friend bool operator==(const Rect&, const Rect&) = default;

    Point middle() const { return { x + width / 2, y + height / 2 }; }
    Size size() const { return { width, height }; }
};

/// x' = a·x + c·y + tx, y' = b·x + d·y + ty.
struct Transform {
    double a = 1, b = 0, c = 0, d = 1, tx = 0, ty = 0;
    friend bool operator==(const Transform&, const Transform&) = default;
};

Point apply(const Transform& transform, Point point);
/// None if the transform flattens the plane.
std::optional<Transform> inverse(const Transform& transform);
/// The size of the box around a rectangle of `size` taken through the transform. A negative size keeps its sign
/// as long as the transform does not turn it; a turned one has a box like any other.
Size boundingSize(Size size, const Transform& transform);

} // namespace panotra::sim
