/// One running block animation: what it moves, from where to where, and when.
#pragma once

#include "simulator/device/Device.h"

#include <array>
#include <vector>

namespace panotra::sim {

struct View;

/// The properties of a view that an animation can move.
enum class AnimatedProperty : std::uint8_t { Center, Bounds, Transform, Alpha, BlurRadius, Background };

/// A property's value as numbers: Center x, y; Bounds width, height; Transform a to ty; Alpha; BlurRadius;
/// Background red, green, blue, alpha. Unused places are 0. An unset blur radius is 0, an unset background clear.
using PropertyValue = std::array<double, 6>;

/// The model value: what was set last, whatever a running animation shows.
PropertyValue propertyValue(const View& view, AnimatedProperty property);

class Animation {
public:
    /// One property of one view. `before` is what the view showed when the property was first set.
    struct Change {
        View* view;
        AnimatedProperty property;
        PropertyValue before;
        PropertyValue after;
    };

    Animation(double startTime, double delayInSeconds, double durationInSeconds)
        : start(startTime)
        , delay(delayInSeconds)
        , duration(durationInSeconds)
    {
    }
    ~Animation();
    Animation(const Animation&) = delete;
    Animation& operator=(const Animation&) = delete;

    const double start; ///< when it was asked for; it moves from start + delay on
    const double delay;
    const double duration;

    /// In the order in which the properties were first set.
    const std::vector<Change>& changes() const { return m_changes; }
    /// Null if the animation does not move that property of that view.
    const Change* find(const View& view, AnimatedProperty property) const;
    bool animates(const View& view) const;
    bool isEmpty() const { return m_changes.empty(); }

    /// Keeps the view alive as long as it is animated.
    void record(View& view, AnimatedProperty property, const PropertyValue& before);
    void remove(View& view);

private:
    std::vector<Change> m_changes;
};

} // namespace panotra::sim
