/// The screen.
#include "simulator/device/Screen.h"

namespace panotra::sim {

namespace {

/// The centre of a status bar 20 points high.
constexpr double statusBarCenterY = 10;

} // namespace

std::pair<double, double> Screen::currentStatusBarCenter() const
{
    if (statusBarCenter.has_value())
        return *statusBarCenter;
    return { currentSize().first / 2, statusBarCenterY };
}

std::pair<double, double> Screen::currentSize() const
{
    const bool isLandscape = orientation == 3 || orientation == 4;
    return isLandscape ? std::pair { height, width } : std::pair { width, height };
}

} // namespace panotra::sim
