/// The host's own banner for a notification, which comes with its sound. Nothing but the screen shows it.
#pragma once

namespace panotra::sim {

struct NotificationBanner {
    static constexpr double slide = 0.25; ///< seconds in which it comes, and goes
    static constexpr double stay = 2.5; ///< seconds between

    double shownAt; ///< on the device's clock

    double leavesAt() const { return shownAt + slide + stay; }
    double goneAt() const { return leavesAt() + slide; }
    /// How far it has come down at a time: 0 out of sight, 1 in its place.
    double descentAt(double time) const;
    bool isMovingAt(double time) const;
};

} // namespace panotra::sim
