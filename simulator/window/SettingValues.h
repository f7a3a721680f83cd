/// Settings that are looked at and changed beside the phone, as the settings page would.
#pragma once

#include "facts/MixerSettings.h"
#include "simulator/window/Session.h"

#include <string>

namespace panotra::sim {

/// The setting with its range cut to what a phone with that screen has room for: a larger mixer would be cut off.
MixerSetting offered(const MixerSetting& setting, const ScreenSize& screen);

/// What the mixer makes of what is stored: a choice's number, 0 or 1 of a switch, the value of a range, which is
/// finite.
double valueOf(const Session& session, const MixerSetting& setting);
/// Stores and announces. A range's value is taken to its nearest step inside the range.
void setValue(Session& session, const MixerSetting& setting, double value);
/// Where in its range a value lies, from 0 to 1, and back.
double fractionOf(const MixerSetting& setting, double value);
double valueAtFraction(const MixerSetting& setting, double fraction);
/// "0.875", "Banner".
std::string textOfValue(const MixerSetting& setting, double value);

} // namespace panotra::sim
