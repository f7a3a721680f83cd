/// The banner's way down and up again.
#include "simulator/device/NotificationBanner.h"

#include "simulator/device/Presentation.h"

namespace panotra::sim {

double NotificationBanner::descentAt(double time) const
{
    const double come = easeInEaseOut((time - shownAt) / slide);
    return time < leavesAt() ? come : 1 - easeInEaseOut((time - leavesAt()) / slide);
}

bool NotificationBanner::isMovingAt(double time) const
{
    const bool comes = time >= shownAt && time < shownAt + slide;
    return comes || (time >= leavesAt() && time < goneAt());
}

} // namespace panotra::sim
