/// What each hook replaced: the host's own behaviour, or another library's hook.
#pragma once

#include "platform/CoreGraphics.h"
#include "platform/Runtime.h"

#include <cstdint>

namespace panotra {

/// The implementation that a hook replaced, called with the types of the method. Null where the class was missing:
/// the call then answers zero. What it raises goes to the caller.
template <typename Signature> struct PreviousImplementation;

template <typename Result, typename... Arguments> struct PreviousImplementation<Result(Arguments...)> {
    IMP implementation = nullptr;

    Result operator()(id self, SEL selector, Arguments... arguments) const
    {
        if (implementation == nullptr)
            return Result();
        return reinterpret_cast<Result (*)(id, SEL, Arguments...)>(implementation)(self, selector, arguments...);
    }
};

/// One field a function of ours.
struct PreviousImplementations {
    PreviousImplementation<void(NSInteger, id)> motionBegan; ///< kept like the others, never called
    PreviousImplementation<void(id)> applicationDidFinishLaunching;
    PreviousImplementation<bool(float*, id*, id)> getActiveCategoryVolume;
    PreviousImplementation<void(id)> postEffectiveVolumeNotification;
    PreviousImplementation<bool(float, id)> setVolumeTo;
    PreviousImplementation<bool(id, NSInteger, id)> playSound;
    PreviousImplementation<void(bool)> setRingerMuted;
    PreviousImplementation<void(std::int32_t)> activateRingerHUDFromMuteSwitch;
    PreviousImplementation<void(std::int32_t, float, NSUInteger)> activateRingerHUD;
    PreviousImplementation<void(id, double)> presentHUDView;
    PreviousImplementation<void(id, bool)> presentHUD;
    PreviousImplementation<void(bool)> reorientHUDIfNeeded;
    PreviousImplementation<void(NSInteger, double, id)> noteInterfaceOrientationChanged;
    PreviousImplementation<void(std::int32_t, float)> presentVolumeHUDWithMode;
    PreviousImplementation<void(float)> presentVolumeHUD;
    PreviousImplementation<void(CGRect)> setStatusBarFrame;
    PreviousImplementation<void(CGRect)> setModernStatusBarFrame;
};

extern constinit PreviousImplementations previous;

} // namespace panotra
