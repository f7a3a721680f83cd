/// A setting's value by its kind: read as the mixer reads it, written as the settings page writes it.
#include "simulator/window/SettingValues.h"

#include "facts/MixerSize.h"
#include "simulator/device/Preferences.h"
#include "simulator/scenario/TextFormat.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <cmath>
#include <string_view>

namespace panotra::sim {

MixerSetting offered(const MixerSetting& setting, const ScreenSize& screen)
{
    MixerSetting cut = setting;
    if (std::string_view(setting.key) != mixerSetting("scale").key)
        return cut;
    const double steps = std::floor(mostMixerScale(screen.width, screen.height) / setting.step + 1e-9);
    cut.most = std::clamp(steps * setting.step, setting.least, setting.most);
    return cut;
}

double valueOf(const Session& session, const MixerSetting& setting)
{
    const Json* const stored = session.setting(setting.domain, setting.key);
    if (stored == nullptr)
        return setting.absentValue;
    switch (setting.kind) {
    case SettingKind::Choice:
        return unsignedShortOf(*stored);
    case SettingKind::Switch:
        return booleanOf(*stored) ? 1 : 0;
    case SettingKind::Range: {
        const double value = numberOf(*stored);
        return std::isfinite(value) ? value : setting.absentValue; // no place on the slider
    }
    }
    return setting.absentValue;
}

void setValue(Session& session, const MixerSetting& setting, double value)
{
    switch (setting.kind) {
    case SettingKind::Choice:
        session.set(setting.domain, setting.key, std::llround(value));
        break;
    case SettingKind::Switch:
        session.set(setting.domain, setting.key, value != 0);
        break;
    case SettingKind::Range:
        session.set(setting.domain, setting.key, valueAtFraction(setting, fractionOf(setting, value)));
        break;
    }
}

double fractionOf(const MixerSetting& setting, double value)
{
    return std::clamp((value - setting.least) / (setting.most - setting.least), 0.0, 1.0);
}

double valueAtFraction(const MixerSetting& setting, double fraction)
{
    const double steps = std::round(std::clamp(fraction, 0.0, 1.0) * (setting.most - setting.least) / setting.step);
    // In thousandths, so that three tenths are 0.3 and no neighbour of it.
    constexpr double fineness = 1000;
    return std::round((setting.least + steps * setting.step) * fineness) / fineness;
}

std::string textOfValue(const MixerSetting& setting, double value)
{
    return setting.kind == SettingKind::Choice && value < static_cast<double>(setting.choices.size())
        ? setting.choices[static_cast<std::size_t>(value)]
        : shortNumber(value);
}

} // namespace panotra::sim
