/// What the library takes hold of in the host: the methods that it hooks, the variables and keys that it reads.
///
/// The constructor installs by the first table; the logic reads by the other two. Whoever wants to know whether a
/// process has what the library counts on goes through the same rows. No system is ever asked for its version: a row
/// says since when and until when there is such a thing, the process whether it has it.
#pragma once

#include "facts/AudioNames.h"
#include "hooks/HookedMethod.h"
#include "hooks/Panotra.h"
#include "hooks/PreviousImplementations.h"
#include "platform/AVSystemController.h"
#include "platform/SpringBoard.h"

#include <array>
#include <cstddef>
#include <cstdint>

namespace panotra {

/// When a row's turn comes.
enum class Turn : std::uint8_t {
    Always, ///< the oldest name that a method is known by
    OrElse, ///< only if none of the rows above it, back to the nearest `Always`, found its method
    /// Only if the row above it found its method; or, where none did, back to the nearest `Always`, if the class lacks
    /// the method that `insteadOf` names.
    AndAlso,
};

struct HookRow {
    Turn turn;
    const char* className;
    const char* method;
    const char* type; ///< the runtime's type code on 64-bit processors
    int since; ///< the first system that has it, counted from iOS 9
    int until; ///< the last one, up to iOS 16
    HookEntry (*entry)() noexcept; ///< of the function of ours that serves it
    const char* insteadOf = nullptr; ///< an older method of the class, whose answer now comes with a call of this one
};

using enum Turn;

/// A function of ours with its own place for what it replaces.
template <auto Function, auto Replaced>
inline constexpr HookEntry (*by)() noexcept = HookedMethod<Function, Replaced>::entry;

using Previous = PreviousImplementations;

/// In the order of installation. The first row belongs into every process, the others into the home screen.
// clang-format off
inline constexpr std::array hookRows {
    HookRow { Always,  "UIResponder",        "motionBegan:withEvent:",                             "v@:q@",     9, 16, by<hooks::motionBegan, &Previous::motionBegan> },
    HookRow { Always,  "SpringBoard",        "applicationDidFinishLaunching:",                     "v@:@",      9, 16, by<hooks::applicationDidFinishLaunching, &Previous::applicationDidFinishLaunching> },
    HookRow { Always,  "AVSystemController", "getActiveCategoryVolume:andName:fallbackCategory:",  "B@:^f^@@",  9, 16, by<hooks::getActiveCategoryVolume, &Previous::getActiveCategoryVolume> },
    // One method, whose argument's type changed. The constructor takes it by the first row, on every system; the second
    // is for whoever compares types.
    HookRow { Always,  "AVSystemController", "postEffectiveVolumeNotification:",                   "v@:^v",     9, 15, by<hooks::postEffectiveVolumeNotification, &Previous::postEffectiveVolumeNotification> },
    HookRow { OrElse,  "AVSystemController", "postEffectiveVolumeNotification:",                   "v@:@",     16, 16, by<hooks::postEffectiveVolumeNotification, &Previous::postEffectiveVolumeNotification> },
    HookRow { Always,  "AVSystemController", "setVolumeTo:forCategory:",                           "B@:f@",     9, 16, by<hooks::setVolumeTo, &Previous::setVolumeTo> },
    HookRow { Always,  "SBSoundController",  "playSound:environments:completion:",                 "B@:@q@?",   9, 16, by<hooks::playSound, &Previous::playSound> },
    HookRow { Always,  "SBMediaController",  "setRingerMuted:",                                    "v@:B",      9, 12, by<hooks::setRingerMuted, &Previous::setRingerMuted> },
    HookRow { OrElse,  "SBRingerControl",    "setRingerMuted:",                                    "v@:B",     13, 16, by<hooks::setRingerMuted, &Previous::setRingerMuted> },
    HookRow { AndAlso, "SBRingerControl",    "activateRingerHUDFromMuteSwitch:",                   "v@:i",     13, 16, by<hooks::activateRingerHUDFromMuteSwitch, &Previous::activateRingerHUDFromMuteSwitch> },
    HookRow { AndAlso, "SBRingerControl",    "activateRingerHUD:withInitialVolume:fromSource:",    "v@:ifQ",   16, 16, by<hooks::activateRingerHUD, &Previous::activateRingerHUD> },
    HookRow { Always,  "SBHUDController",    "presentHUDView:autoDismissWithDelay:",               "v@:@d",     9, 12, by<hooks::presentHUDView, &Previous::presentHUDView> },
    HookRow { OrElse,  "SBHUDController",    "_presentHUD:animated:",                              "v@:@B",    13, 16, by<hooks::presentHUD, &Previous::presentHUD> },
    // Up to 12 the application has it, too, beside what it took the place of.
    HookRow { AndAlso, "SpringBoard",        "noteInterfaceOrientationChanged:duration:logMessage:", "v@:qd@", 13, 16, by<hooks::noteInterfaceOrientationChanged, &Previous::noteInterfaceOrientationChanged>, "windowRotationDuration" },
    HookRow { Always,  "SBHUDController",    "reorientHUDIfNeeded:",                               "v@:B",      9, 12, by<hooks::reorientHUDIfNeeded, &Previous::reorientHUDIfNeeded> },
    HookRow { Always,  "VolumeControl",      "_presentVolumeHUDWithMode:volume:",                  "v@:if",     9, 12, by<hooks::presentVolumeHUDWithMode, &Previous::presentVolumeHUDWithMode> },
    HookRow { OrElse,  "SBVolumeControl",    "_presentVolumeHUDWithVolume:",                       "v@:f",     13, 16, by<hooks::presentVolumeHUD, &Previous::presentVolumeHUD> },
    HookRow { Always,  "UIStatusBar",        "setFrame:",    "v@:{CGRect={CGPoint=dd}{CGSize=dd}}",  9, 16, by<hooks::setStatusBarFrame, &Previous::setStatusBarFrame> },
    HookRow { Always,  "_UIStatusBar",       "setFrame:",    "v@:{CGRect={CGPoint=dd}{CGSize=dd}}", 11, 16, by<hooks::setModernStatusBarFrame, &Previous::setModernStatusBarFrame> },
};
// clang-format on

/// A row without the library's functions: for the doctor, which must not link the hooks.
struct HostMethod {
    Turn turn;
    const char* className;
    const char* method;
    const char* type;
    int since;
    int until;
};

constexpr auto methodsOf(const std::array<HookRow, hookRows.size()>& rows)
{
    std::array<HostMethod, hookRows.size()> methods {};
    for (std::size_t index = 0; index < methods.size(); ++index) {
        const HookRow& row = rows[index];
        methods[index] = { row.turn, row.className, row.method, row.type, row.since, row.until };
    }
    return methods;
}

inline constexpr auto hookedMethods = methodsOf(hookRows);

/// An instance variable of a host object, read by key.
struct VariableRow {
    const char* className;
    const char* name;
    const char* type;
    int since;
    int until;
};

inline constexpr std::array variableRows {
    VariableRow { "VolumeControl", volumeMode, "i", 9, 12 },
    VariableRow { "VolumeControl", volumeDownButtonIsDown, "B", 9, 12 },
    VariableRow { "VolumeControl", volumeUpButtonIsDown, "B", 9, 12 },
    VariableRow { "SBVolumeControl", volumeMode, "Q", 13, 16 },
    VariableRow { "SBVolumeControl", volumeDownButtonIsDown, "B", 13, 16 },
    VariableRow { "SBVolumeControl", volumeUpButtonIsDown, "B", 13, 16 },
};

/// A key of an announcement of the audio service.
struct KeyRow {
    const char* name;
    const char* valueClass;
    int since;
    int until;
};

// Each under its old name and under the one that it has had since.
inline constexpr std::array reasonKeys { announcementKey::reason, "Reason" };
inline constexpr std::array levelKeys { announcementKey::level, "Volume" };

inline constexpr std::array keyRows {
    KeyRow { announcementKey::category, "NSString", 9, 16 },
    KeyRow { reasonKeys[0], "NSString", 9, 14 },
    KeyRow { reasonKeys[1], "NSString", 15, 16 },
    KeyRow { levelKeys[0], "NSNumber", 9, 14 },
    KeyRow { levelKeys[1], "NSNumber", 15, 16 },
};

} // namespace panotra
