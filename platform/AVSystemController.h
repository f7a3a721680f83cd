/// AVSystemController: the audio service. Levels are 32-bit floats from 0.0 to 1.0.
#pragma once

#include "platform/NSString.h"

namespace panotra {

/// The attribute that holds the active route's name.
inline constexpr const char* AVController_ActiveAudioRouteAttribute = "AVController_ActiveAudioRouteAttribute";

class AVSystemController : public NSObject {
public:
    using NSObject::NSObject;

    static AVSystemController sharedAVSystemController() noexcept;

    /// Passes through every hook of the method, ours included. False on failure.
    bool setVolumeTo(float level, const NSString& category) const noexcept;
    /// False on failure; `*level` then stays as it was.
    bool getVolume(float* level, const NSString& category) const noexcept;
    /// `key`: a constant of the program's.
    NSObject attributeForKey(const char* key) const noexcept;
};

/// The home screen's own memory of what the audio service said. Not on every system.
class SBAVSystemControllerCache : public NSObject {
public:
    using NSObject::NSObject;

    static SBAVSystemControllerCache sharedInstance() noexcept;
    /// The active route's name.
    NSObject activeAudioRoute() const noexcept;
};

} // namespace panotra
