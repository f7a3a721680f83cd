/// The process-wide values: settings, flags and references, all read and written on the main thread.
///
/// One structure, so that what a process starts with stands in one place. It is constant-initialised and has no
/// destructor: loading the library costs nothing for it.
#pragma once

#include "facts/MixerSettings.h"
#include "platform/NSString.h"

#include <cstddef>
#include <cstdint>
#include <type_traits>

namespace panotra {

class PNOController;
class PNOHelperController;

struct ProcessValues {
    // Settings, copied from the preference domains at every announced change.
    std::uint16_t activeStyle = absentValue<std::uint16_t>("activeStyle"); ///< see MixerStyle
    std::uint16_t mixerSkin = absentValue<std::uint16_t>("mixerSkin"); ///< see findMixerSkin()
    bool replaceHUD = absentValue<bool>("replaceHUD"); ///< the mixer stands in for the system's indicator
    float scale = absentValue<float>("scale"); ///< of the whole panel or banner
    bool dismissOnTouch = absentValue<bool>("dismissOnTouch"); ///< a touch outside the panel dismisses the mixer
    bool isAppCallNotification
        = absentValue<bool>("isAppCallNotification"); ///< the ringer keeps the notifications level
    bool handleShake = absentValue<bool>("handleShake"); ///< shaking toggles the mixer
    double autoDismiss = absentValue<double>("dismissDelay"); ///< seconds until the mixer dismisses itself

    // Flags.
    bool manualSet = false; ///< a program, not a button, set a volume last
    bool isHackedRingtoneVolume = false; ///< the next announcement is of a notification sound's own making
    bool isPanning = false; ///< a drag owns the level
    bool presentedViaActivator = false; ///< shown on demand: no automatic dismissal
    bool autoResetTransform = true; ///< an enlarged slider shrinks back by itself
    bool killedByTouch = false; ///< the dismissal under way was caused by a touch

    // Tokens of Darwin notifications.
    std::int32_t shakeToken = 0;
    std::int32_t screenToken = -1;

    /// The category of the latest announcement. It is kept alive: the host's string may go at any time.
    ProcessReference<NSString> globalCategory;
    /// Whether the once-only seed of `globalCategory` was spent.
    bool globalCategoryWasSeeded = false;

    // What the layout remembers over all showings. `justCreated` is never set again: only the very first layout
    // of a process goes without the rotation animation.
    bool justCreated = true;
    std::int64_t previousOrientation = -1;
    /// What came with the last change of the orientation, where the home screen cannot be asked for it. Seconds.
    double rotationDuration = 0.3;

    // The two singletons, never freed.
    ProcessReference<PNOController> sharedController;
    ProcessReference<PNOHelperController> sharedHelperController;
};

static_assert(std::is_trivially_destructible_v<ProcessValues>);

extern constinit ProcessValues processValues;

/// Calls `visit` with each setting and the value that holds it, in the order of the table.
template <typename Visitor> constexpr void forEachHeldSetting(const Visitor& visit)
{
    visit(mixerSetting("activeStyle"), &ProcessValues::activeStyle);
    visit(mixerSetting("mixerSkin"), &ProcessValues::mixerSkin);
    visit(mixerSetting("replaceHUD"), &ProcessValues::replaceHUD);
    visit(mixerSetting("scale"), &ProcessValues::scale);
    visit(mixerSetting("dismissOnTouch"), &ProcessValues::dismissOnTouch);
    visit(mixerSetting("isAppCallNotification"), &ProcessValues::isAppCallNotification);
    visit(mixerSetting("handleShake"), &ProcessValues::handleShake);
    visit(mixerSetting("dismissDelay"), &ProcessValues::autoDismiss);
}

static_assert(
    [] {
        std::size_t next = 0;
        bool isInOrder = true;
        forEachHeldSetting([&](const MixerSetting& setting, auto) {
            isInOrder = isInOrder && next < mixerSettings.size() && &setting == &mixerSettings[next];
            ++next;
        });
        return isInOrder && next == mixerSettings.size();
    }(),
    "every setting is held, in the order of the table");

/// Whether this process is the home screen, where the mixer lives.
bool isSpringBoardProcess() noexcept;

} // namespace panotra
