/// The settings: where each is stored, what it may be, and what holds while nothing is stored.
///
/// The library reads them (hooks/Settings.cpp), the window's panel shows them, the settings page is checked against
/// them.
#pragma once

#include "facts/MixerSkins.h"
#include "facts/MixerStyle.h"
#include "facts/PublicNames.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <span>
#include <string_view>

namespace panotra {

enum class SettingKind : std::uint8_t {
    Choice, ///< an unsigned 16-bit number, 0 for the first of the choices
    Switch, ///< a boolean
    Range, ///< a real number
};

struct MixerSetting {
    const char* key;
    const char* valueName; ///< of the process-wide value that holds it
    const char* domain;
    SettingKind kind;
    /// What the library takes before anything is read, and where the key is absent.
    double absentValue;
    const char* label;

    /// Of a choice: what its values are called.
    std::span<const char* const> choices {};
    // Of a range: the ends of its slider, and how far apart values are where a finger does not choose them freely.
    double least = 0;
    double most = 0;
    double step = 0;

    /// Posted when a person has changed the setting.
    constexpr const char* changeNotification() const
    {
        return std::string_view(domain) == siblingDomain ? notification::siblingSettingsChanged
                                                         : notification::ownSettingsChanged;
    }
};

/// In the order in which they are read.
inline constexpr std::array mixerSettings {
    MixerSetting { "activeStyle", "activeStyle", ownDomain, SettingKind::Choice, 0, "Style", mixerStyleNames },
    MixerSetting { "mixerSkin", "mixerSkin", ownDomain, SettingKind::Choice, 0, "Skin", mixerSkinNames },
    MixerSetting { "replaceHUD", "replaceHUD", ownDomain, SettingKind::Switch, 0, "Replace Volume Indicator" },
    MixerSetting { "scale", "scale", ownDomain, SettingKind::Range, 0.875, "Size", {}, 0.5, 1.25, 0.025 },
    MixerSetting { "dismissOnTouch", "dismissOnTouch", ownDomain, SettingKind::Switch, 0, "Dismiss on Touch" },
    MixerSetting { "isAppCallNotification", "isAppCallNotification", ownDomain, SettingKind::Switch, 0,
        "App Calls as Notifications" },
    MixerSetting { "handleShake", "handleShake", ownDomain, SettingKind::Switch, 0, "Shake to Show" },
    MixerSetting { "dismissDelay", "autoDismiss", siblingDomain, SettingKind::Range, 2, "Seconds Until Dismissal", {},
        0.5, 10, 0.5 },
};

/// Not to be called: what the compiler trips over where the table has no such row.
void thereIsNoSuchSetting();

/// The row of that key. Does not compile if there is none.
consteval const MixerSetting& mixerSetting(std::string_view key)
{
    for (const MixerSetting& each : mixerSettings) {
        if (each.key == key)
            return each;
    }
    thereIsNoSuchSetting();
    return mixerSettings.front();
}

/// What an absent key gives, as the value is held.
template <typename Value> consteval Value absentValue(std::string_view key)
{
    return static_cast<Value>(mixerSetting(key).absentValue);
}

static_assert(std::ranges::all_of(mixerSettings,
                  [](const MixerSetting& each) {
                      switch (each.kind) {
                      case SettingKind::Choice:
                          return each.absentValue < static_cast<double>(each.choices.size());
                      case SettingKind::Switch:
                          return each.absentValue == 0 || each.absentValue == 1;
                      case SettingKind::Range:
                          return each.least <= each.absentValue && each.absentValue <= each.most && each.step > 0;
                      }
                      return false;
                  }),
    "what holds while nothing is stored is among what may be chosen");

} // namespace panotra
