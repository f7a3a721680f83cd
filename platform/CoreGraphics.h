/// Points, sizes, rectangles and affine transforms, with the layout and the names of the platform's own.
/// Lengths are points; x grows to the right and y downwards. All functions are pure.
#pragma once

#include <cmath>
#include <type_traits>

namespace panotra {

/// The platform's graphics float: 64-bit where pointers are, 32-bit elsewhere.
using CGFloat = std::conditional_t<sizeof(void*) == 8, double, float>;

struct CGPoint {
    CGFloat x = 0;
    CGFloat y = 0;
    friend bool operator==(const CGPoint&, const CGPoint&) = default;
};

struct CGSize {
    CGFloat width = 0;
    CGFloat height = 0;
    friend bool operator==(const CGSize&, const CGSize&) = default;
};

/// Sizes keep their sign: nothing here standardises a rectangle of negative width.
struct CGRect {
    CGPoint origin;
    CGSize size;
    friend bool operator==(const CGRect&, const CGRect&) = default;
};

constexpr CGRect CGRectMake(CGFloat x, CGFloat y, CGFloat width, CGFloat height)
{
    return { { x, y }, { width, height } };
}

/// x' = a·x + c·y + tx, y' = b·x + d·y + ty.
struct CGAffineTransform {
    CGFloat a = 1;
    CGFloat b = 0;
    CGFloat c = 0;
    CGFloat d = 1;
    CGFloat tx = 0;
    CGFloat ty = 0;
    friend bool operator==(const CGAffineTransform&, const CGAffineTransform&) = default;
};

inline constexpr CGAffineTransform CGAffineTransformIdentity {};

constexpr CGAffineTransform CGAffineTransformMakeScale(CGFloat sx, CGFloat sy)
{
    return { sx, 0, 0, sy, 0, 0 };
}

/// Turns by `angle` radians; positive is clockwise on screen.
inline CGAffineTransform CGAffineTransformMakeRotation(CGFloat angle)
{
    const CGFloat sine = std::sin(angle);
    const CGFloat cosine = std::cos(angle);
    return { cosine, sine, -sine, cosine, 0, 0 };
}

} // namespace panotra
