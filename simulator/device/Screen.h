/// The screen: its measures, its orientation, its status bar.
#pragma once

#include <cstdint>
#include <optional>
#include <utility>

namespace panotra::sim {

/// The screen and what surrounds the mixer on it.
class Screen {
public:
    double width = 375; ///< points, upright
    double height = 667;
    double scale = 2; ///< pixels a point
    bool hasRealDisplayBounds = true; ///< false: only `_referenceBounds`
    std::int64_t orientation = 1; ///< the platform's number: 1 and 2 upright, 3 and 4 landscape
    bool statusBarHidden = false;
    std::optional<std::pair<double, double>> statusBarCenter; ///< points; none: half the width as now seen, 10

    /// Width and height in points as the interface orientation sees them.
    std::pair<double, double> currentSize() const;
    std::pair<double, double> currentStatusBarCenter() const;
};

} // namespace panotra::sim
