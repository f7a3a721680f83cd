/// What the events of a moment come to: what they all do together, and what each says alone.
#pragma once

#include "facts/VolumeSlots.h"
#include "simulator/device/Device.h"

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace panotra::sim {

/// The values are those that hold at the end of the moment.
struct Moment {
    // The library comes in.
    std::size_t hooks = 0;
    std::size_t observed = 0; ///< notifications, and states of notifications
    std::size_t gestures = 0;
    bool hasReadSettings = false; ///< those that more than the mixer looks at, or nothing else happened

    // Levels.
    struct Announcement {
        std::string category;
        std::string reason; ///< empty where the announcement has none
        std::optional<double> level;
    };
    std::vector<Announcement> announced; ///< one a category and reason
    std::map<std::string, double> set; ///< the system's, by a program, by category
    std::map<SlotNumber, double> saved;

    // The mixer.
    bool isWindowShown = false;
    std::optional<double> fadeIn; ///< how long it takes, where it begins
    std::optional<double> dismissal; ///< in how many seconds
    bool isDismissalTakenBack = false; ///< and not put off again
    std::optional<double> fadeOut;
    bool isTornDown = false;
    bool isSecondHalfOfFadeIn = false; ///< it begins now, and takes the mixer to full opacity
    std::optional<double> turn; ///< how long it takes, where something else moved
    std::vector<std::string> swelling; ///< the sliders, by the fields that hold them
    std::vector<std::string> shrinking;

    /// What stands for itself, in its order.
    std::vector<const Json*> others;
};

/// `events` must outlive the moment.
Moment momentOf(const std::vector<Json>& events);

} // namespace panotra::sim
