/// The table of settings.
#include "simulator/window/SettingsTable.h"

#include "simulator/Domains.h"
#include "simulator/device/Preferences.h"
#include "simulator/scenario/TextFormat.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace panotra::sim {

namespace {

constexpr std::array<const char*, 2> styles { "Panel", "Banner" };
constexpr std::array<const char*, 4> skins { "Light", "Dark", "Darker", "Black" };

using enum SettingRow::Kind;

constexpr std::array rows {
    SettingRow { Choice, ownDomain, "activeStyle", "Style", 0, styles },
    SettingRow { Choice, ownDomain, "mixerSkin", "Skin", 0, skins },
    SettingRow { Switch, ownDomain, "replaceHUD", "Replace indicator", 0 },
    SettingRow { Switch, ownDomain, "dismissOnTouch", "Dismiss on touch", 0 },
    SettingRow { Switch, ownDomain, "handleShake", "Shake to show", 0 },
    SettingRow { Range, ownDomain, "scale", "Size", 0.875, {}, 0.5, 1.25, 0.025, "" },
    SettingRow { Range, siblingDomain, "dismissDelay", "Dismiss after", 2, {}, 0.5, 10, 0.5, " s" },
};

} // namespace

std::span<const SettingRow> allSettings()
{
    return rows;
}

double valueOf(const Session& session, const SettingRow& row)
{
    const Json* const stored = session.setting(row.domain, row.key);
    if (stored == nullptr)
        return row.absentValue;
    switch (row.kind) {
    case Choice:
        return unsignedShortOf(*stored);
    case Switch:
        return booleanOf(*stored) ? 1 : 0;
    case Range: {
        const double value = numberOf(*stored);
        return std::isfinite(value) ? value : row.absentValue; // no place on the slider
    }
    }
    return row.absentValue;
}

void setValue(Session& session, const SettingRow& row, double value)
{
    switch (row.kind) {
    case Choice:
        session.set(row.domain, row.key, std::llround(value));
        break;
    case Switch:
        session.set(row.domain, row.key, value != 0);
        break;
    case Range:
        session.set(row.domain, row.key, valueAtFraction(row, fractionOf(row, value)));
        break;
    }
}

double fractionOf(const SettingRow& row, double value)
{
    return std::clamp((value - row.least) / (row.most - row.least), 0.0, 1.0);
}

double valueAtFraction(const SettingRow& row, double fraction)
{
    const double steps = std::round(std::clamp(fraction, 0.0, 1.0) * (row.most - row.least) / row.step);
    // In thousandths, so that three tenths are 0.3 and no neighbour of it.
    constexpr double fineness = 1000;
    return std::round((row.least + steps * row.step) * fineness) / fineness;
}

std::string textOfValue(const SettingRow& row, double value)
{
    return row.kind == Choice && value < static_cast<double>(row.choices.size())
        ? row.choices[static_cast<std::size_t>(value)]
        : shortNumber(value) + row.unit;
}

} // namespace panotra::sim
