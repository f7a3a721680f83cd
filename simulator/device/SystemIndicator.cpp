/// The indicator's fading.
#include "simulator/device/SystemIndicator.h"

#include "simulator/device/Presentation.h"

namespace panotra::sim {

double SystemIndicator::opacityAt(double time) const
{
    return 1 - easeInEaseOut((time - fadesAt()) / (goneAt() - fadesAt()));
}

} // namespace panotra::sim
