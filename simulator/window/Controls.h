/// What a person can do: one table for the keys, for the buttons at the phone's side, and for the list of keys.
#pragma once

#include "facts/MixerSettings.h"
#include "simulator/window/Phone.h"

#include <span>
#include <string>

namespace panotra::sim {

struct Control {
    const char* group; ///< the heading under which it stands; those of one group stand together
    const char* key; ///< as SDL names it: "Up", "M", "1"
    const char* cap; ///< as it stands on the key
    const char* label;
    Lines (*press)(Phone& phone);
    Lines (*release)(Phone& phone); ///< null: it is not held
    bool (*isOn)(const Phone& phone); ///< null: it is never on
    std::string (*state)(const Phone& phone); ///< what stands beside the label; null: nothing
    bool choosesSound = false; ///< where it is heard, or what plays
    /// The switch without which it does little or nothing; null: it needs none.
    const MixerSetting* needed = nullptr;
};

std::span<const Control> allControls();

/// Null if no control has the key.
const Control* findControl(std::string_view key);

} // namespace panotra::sim
