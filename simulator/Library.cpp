/// The mixer's library as the simulated loader sees it.
#include "simulator/Library.h"

#include "hooks/Panotra.h"
#include "hooks/PreviousImplementations.h"
#include "model/ProcessValues.h"

namespace panotra::sim {
namespace {

/// A fresh image of the library: what another process held is gone with its memory.
void resetImage()
{
    processValues = {};
    previous = {};
}

void load()
{
    resetImage();
    constructor();
}

Json globals()
{
    const ProcessValues& values = processValues;
    const NSString category = values.globalCategory.get();
    return {
        { "activeStyle", values.activeStyle },
        { "mixerSkin", values.mixerSkin },
        { "replaceHUD", values.replaceHUD },
        { "scale", values.scale },
        { "dismissOnTouch", values.dismissOnTouch },
        { "isAppCallNotification", values.isAppCallNotification },
        { "handleShake", values.handleShake },
        { "autoDismiss", values.autoDismiss },
        { "globalCategory", category ? Json(category.view()) : Json(nullptr) },
        { "manualSet", values.manualSet },
        { "isHackedRingtoneVolume", values.isHackedRingtoneVolume },
        { "isPanning", values.isPanning },
        { "presentedViaActivator", values.presentedViaActivator },
        { "autoResetTransform", values.autoResetTransform },
        { "killedByTouch", values.killedByTouch },
    };
}

LayoutMemory layoutMemory()
{
    return { processValues.justCreated, processValues.previousOrientation };
}

} // namespace

Library loadedLibrary()
{
    resetImage();
    return { load, globals, layoutMemory };
}

} // namespace panotra::sim
