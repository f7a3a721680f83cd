/// The list of the process-wide values.
#include "simulator/Globals.h"

#include "model/ProcessValues.h"

#include <utility>

namespace panotra::sim {

Json globalsReport(const ProcessValues& values, Json category)
{
    Json report = Json::object();
    forEachHeldSetting([&](const MixerSetting& setting, auto held) { report[setting.valueName] = values.*held; });
    report.update({
        { "globalCategory", std::move(category) },
        { "manualSet", values.manualSet },
        { "isHackedRingtoneVolume", values.isHackedRingtoneVolume },
        { "isPanning", values.isPanning },
        { "presentedViaActivator", values.presentedViaActivator },
        { "autoResetTransform", values.autoResetTransform },
        { "killedByTouch", values.killedByTouch },
    });
    return report;
}

} // namespace panotra::sim
