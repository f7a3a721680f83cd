/// The settings that can be changed beside the phone, as the settings page has them.
#pragma once

#include "simulator/window/Session.h"

#include <span>
#include <string>

namespace panotra::sim {

struct SettingRow {
    enum class Kind { Choice, Switch, Range };

    Kind kind;
    const char* domain;
    const char* key;
    const char* label;
    double absentValue; ///< what the mixer takes where the key is absent
    // Of a choice.
    std::span<const char* const> choices {}; ///< their values count from 0
    // Of a range.
    double least = 0;
    double most = 0;
    double step = 0;
    const char* unit = ""; ///< stands behind the value
};

std::span<const SettingRow> allSettings();

/// What the mixer makes of what is stored: a choice's number, 0 or 1 of a switch, the value of a range, which is
/// finite.
double valueOf(const Session& session, const SettingRow& row);
/// Stores and announces. A range's value is taken to its nearest step inside the range.
void setValue(Session& session, const SettingRow& row, double value);
/// Where in its range a value lies, from 0 to 1, and back.
double fractionOf(const SettingRow& row, double value);
double valueAtFraction(const SettingRow& row, double fraction);
/// "0.875", "2 s".
std::string textOfValue(const SettingRow& row, double value);

} // namespace panotra::sim
