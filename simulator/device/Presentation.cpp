/// Values between the old and the new.
#include "simulator/device/Presentation.h"

#include "simulator/device/Geometry.h"

#include <algorithm>
#include <cmath>

namespace panotra::sim {

namespace {

/// One coordinate of a cubic Bézier from 0 to 1 at parameter `t`, its inner control points at `first` and `second`.
double bezier(double first, double second, double t)
{
    const double rest = 1 - t;
    return 3 * rest * rest * t * first + 3 * rest * t * t * second + t * t * t;
}

/// A transform taken apart into a turn, and what is left when the turn is undone. What is in between two turned
/// views must itself be turned: blending the numbers as they stand would shrink the view on its way.
struct Turned {
    double angle;
    Transform rest;
};

Turned takeApart(const PropertyValue& value)
{
    const double angle = std::atan2(value[1], value[0]);
    const double cosine = std::cos(angle);
    const double sine = std::sin(angle);
    return { angle,
        { cosine * value[0] + sine * value[1], cosine * value[1] - sine * value[0], cosine * value[2] + sine * value[3],
            cosine * value[3] - sine * value[2], value[4], value[5] } };
}

PropertyValue putTogether(const Turned& turned)
{
    const double cosine = std::cos(turned.angle);
    const double sine = std::sin(turned.angle);
    const Transform& rest = turned.rest;
    return { cosine * rest.a - sine * rest.b, sine * rest.a + cosine * rest.b, cosine * rest.c - sine * rest.d,
        sine * rest.c + cosine * rest.d, rest.tx, rest.ty };
}

PropertyValue blend(const PropertyValue& from, const PropertyValue& to, double progress)
{
    PropertyValue value {};
    for (std::size_t i = 0; i < value.size(); ++i)
        value[i] = std::lerp(from[i], to[i], progress);
    return value;
}

PropertyValue blendTransforms(const PropertyValue& from, const PropertyValue& to, double progress)
{
    const Turned start = takeApart(from);
    const Turned end = takeApart(to);
    // The shorter way round.
    const double turn = std::remainder(end.angle - start.angle, 2 * std::acos(-1.0));
    const auto mix = [progress](double a, double b) {
        return std::lerp(a, b, progress);
    };
    return putTogether({ start.angle + turn * progress,
        { mix(start.rest.a, end.rest.a), mix(start.rest.b, end.rest.b), mix(start.rest.c, end.rest.c),
            mix(start.rest.d, end.rest.d), mix(start.rest.tx, end.rest.tx), mix(start.rest.ty, end.rest.ty) } });
}

} // namespace

double easeInEaseOut(double fraction)
{
    if (!(fraction > 0))
        return 0;
    if (fraction >= 1)
        return 1;
    // The curve's x grows with its parameter: halve the interval until the parameter is as good as a double gets.
    double low = 0;
    double high = 1;
    for (int step = 0; step < 60; ++step) {
        const double middle = (low + high) / 2;
        (bezier(0.42, 0.58, middle) < fraction ? low : high) = middle;
    }
    return bezier(0, 1, (low + high) / 2);
}

PropertyValue valueAt(const Animation& animation, const Animation::Change& change, double time)
{
    const double elapsed = time - (animation.start + animation.delay);
    const double progress
        = animation.duration > 0 ? easeInEaseOut(elapsed / animation.duration) : (elapsed < 0 ? 0.0 : 1.0);
    if (progress <= 0)
        return change.before;
    if (progress >= 1)
        return change.after;
    return change.property == AnimatedProperty::Transform ? blendTransforms(change.before, change.after, progress)
                                                          : blend(change.before, change.after, progress);
}

PropertyValue presentationValue(const RunLoop& runLoop, const View& view, AnimatedProperty property, double time)
{
    const auto& running = runLoop.animations();
    for (auto animation = running.rbegin(); animation != running.rend(); ++animation) {
        if (const Animation::Change* const change = (*animation)->find(view, property))
            return valueAt(**animation, *change, time);
    }
    return propertyValue(view, property);
}

} // namespace panotra::sim
