/// Names that a command line takes in place of numbers.
#pragma once

#include "facts/MixerSettings.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace panotra::sim {

struct NamedNumber {
    std::string name; ///< in small letters
    std::int64_t number;
};

using NamedNumbers = std::vector<NamedNumber>;

/// "panel" and "banner", by the values of the setting.
NamedNumbers valuesOf(const MixerSetting& setting);
/// "portrait", "upside-down", "landscape-right", "landscape-left".
NamedNumbers orientationNames();
/// "ios9" to "ios16".
NamedNumbers systemNames();
/// "speaker", "call-speaker": as the sliders are called; those of calls say so.
NamedNumbers slotNames();

/// "0 panel, 1 banner": both spellings, for help.
std::string bothSpellings(const NamedNumbers& names);

/// Makes a number of a name, whatever its capitals; a number of the table stays. Answers what is wrong with any other
/// text, "found …, expected …" with the nearest right name, or nothing.
std::string becomeNumber(std::string& text, const NamedNumbers& names);
/// The same for what stands before the equals sign of "NAME=VALUE".
std::string becomeNumberOfPair(std::string& text, const NamedNumbers& names);

} // namespace panotra::sim
