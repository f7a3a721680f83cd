/// The process-wide values: settings, flags and references, all read and written on the main thread.
///
/// One structure, so that what a process starts with stands in one place. It is constant-initialised and has no
/// destructor: loading the library costs nothing for it.
#pragma once

#include "platform/NSString.h"

#include <cstdint>
#include <type_traits>

namespace panotra {

struct ProcessValues {
    // Settings, copied from the preference domains at every announced change.
    std::uint16_t activeStyle = 0; ///< 0 centred panel, 1 banner, anything else an empty window
    std::uint16_t mixerSkin = 0; ///< 0 to 3, anything else leaves the look alone
    bool replaceHUD = false; ///< the mixer stands in for the system's indicator
    float scale = 0.875f; ///< of the whole panel or banner
    bool dismissOnTouch = false; ///< a touch outside the panel dismisses the mixer
    bool isAppCallNotification = false; ///< the ringer keeps the notifications level
    bool handleShake = false; ///< shaking toggles the mixer
    double autoDismiss = 2.0; ///< seconds until the mixer dismisses itself

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

    // The two singletons, never freed.
    ProcessReference<NSObject> sharedController;
    ProcessReference<NSObject> sharedHelperController;
};

static_assert(std::is_trivially_destructible_v<ProcessValues>);

extern constinit ProcessValues processValues;

/// Whether this process is the home screen, where the mixer lives.
bool isSpringBoardProcess() noexcept;

} // namespace panotra
