/// The table of the process-wide values.
#include "simulator/Globals.h"

#include "facts/MixerSettings.h"
#include "model/ProcessValues.h"
#include "simulator/scenario/ReportField.h"
#include "simulator/scenario/TextFormat.h"

#include <nlohmann/json.hpp>

#include <string>

namespace panotra::sim {

namespace {

struct Globals {
    const ProcessValues& values;
    const Json& category;
};

template <auto member> Json valueOf(const Globals& globals)
{
    return globals.values.*member;
}

using Field = ReportField<Globals>;

/// All but the settings, which have a table already.
constexpr std::array fields {
    Field { "globalCategory", "the category of the latest announcement; null before the first", "Audio/Video",
        [](const Globals& globals) {
            return globals.category;
        } },
    Field { "manualSet", "a program, not a button, set a volume last", "no", valueOf<&ProcessValues::manualSet> },
    Field { "isHackedRingtoneVolume", "the announcement to come is of a notification sound's making", "no",
        valueOf<&ProcessValues::isHackedRingtoneVolume> },
    Field { "isPanning", "a finger drags a slider", "no", valueOf<&ProcessValues::isPanning> },
    Field { "presentedViaActivator", "the mixer was asked for, and stays until it is dismissed", "no",
        valueOf<&ProcessValues::presentedViaActivator> },
    Field { "autoResetTransform", "an enlarged slider shrinks back by itself", "yes",
        valueOf<&ProcessValues::autoResetTransform> },
    Field { "killedByTouch", "a touch caused the dismissal under way", "no", valueOf<&ProcessValues::killedByTouch> },
};

/// "setting Style: 0 Panel, 1 Banner"
std::string meaningOf(const MixerSetting& setting)
{
    auto text = std::string("setting ") + setting.label;
    for (std::size_t value = 0; value < setting.choices.size(); ++value)
        text += (value == 0 ? ": " : ", ") + std::to_string(value) + ' ' + setting.choices[value];
    return text;
}

std::string absentValueOf(const MixerSetting& setting)
{
    if (setting.kind == SettingKind::Switch)
        return setting.absentValue != 0 ? "yes" : "no";
    return shortNumber(setting.absentValue);
}

} // namespace

Json globalsReport(const ProcessValues& values, const Json& category)
{
    auto report = Json::object();
    forEachHeldSetting([&](const MixerSetting& setting, auto held) { report[setting.valueName] = values.*held; });
    addFields(report, fields, Globals { values, category });
    return report;
}

std::vector<FieldNote> globalsNotes()
{
    std::vector<FieldNote> notes;
    for (const MixerSetting& setting : mixerSettings)
        notes.push_back({ std::string("globals.") + setting.valueName, meaningOf(setting), absentValueOf(setting) });
    addNotes(notes, "globals.", fields);
    return notes;
}

} // namespace panotra::sim
