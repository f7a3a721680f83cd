/// The list of the process-wide values.
#include "simulator/Globals.h"

#include "model/ProcessValues.h"

#include <utility>

namespace panotra::sim {

Json globalsReport(const ProcessValues& values, Json category)
{
    return {
        { "activeStyle", values.activeStyle },
        { "mixerSkin", values.mixerSkin },
        { "replaceHUD", values.replaceHUD },
        { "scale", values.scale },
        { "dismissOnTouch", values.dismissOnTouch },
        { "isAppCallNotification", values.isAppCallNotification },
        { "handleShake", values.handleShake },
        { "autoDismiss", values.autoDismiss },
        { "globalCategory", std::move(category) },
        { "manualSet", values.manualSet },
        { "isHackedRingtoneVolume", values.isHackedRingtoneVolume },
        { "isPanning", values.isPanning },
        { "presentedViaActivator", values.presentedViaActivator },
        { "autoResetTransform", values.autoResetTransform },
        { "killedByTouch", values.killedByTouch },
    };
}

} // namespace panotra::sim
