/// Panotra: the library's entry. The constructor installs the hooks and observers; nothing is ever removed.
///
/// The functions below are what the host calls. They run on the home screen's main thread, the constructor on the
/// thread that loads the library, the shake hook on the main thread of whichever process it is in.
#pragma once

#include "platform/CoreGraphics.h"
#include "platform/Runtime.h"

#include <cstdint>

namespace panotra {

/// What the loader runs, once, when the library is loaded.
void constructor() noexcept;

/// Copies the settings of the mixer's own preference domain into the process-wide values.
void settingsChanged() noexcept;
/// Copies the auto-dismiss delay from the sibling tool's domain.
void brv2SettingsChanged() noexcept;
/// The state of the screen changed: some states remove the mixer, every one has it laid out again.
void screenChanged() noexcept;
/// Another process reports a shake.
void uikitShaken() noexcept;

namespace hooks {

// One function a hooked method; each has the signature of the method it replaces. In table order.

void motionBegan(id self, SEL, NSInteger motion, id event);
void applicationDidFinishLaunching(id self, SEL, id application);
bool getActiveCategoryVolume(id self, SEL, float* volume, id* name, id fallbackCategory);
void postEffectiveVolumeNotification(id self, SEL, id notification);
bool setVolumeTo(id self, SEL, float level, id category);
bool playSound(id self, SEL, id sound, NSInteger environments, id completion);
void setRingerMuted(id self, SEL, bool muted);
void activateRingerHUDFromMuteSwitch(id self, SEL, std::int32_t source);
void activateRingerHUD(id self, SEL, std::int32_t kind, float volume, NSUInteger source);
void presentHUDView(id self, SEL, id view, double autoDismissDelay);
void presentHUD(id self, SEL, id model, bool animated);
void reorientHUDIfNeeded(id self, SEL, bool flag);
void noteInterfaceOrientationChanged(id self, SEL, NSInteger orientation, double duration, id logMessage);
void presentVolumeHUDWithMode(id self, SEL, std::int32_t mode, float volume);
void presentVolumeHUD(id self, SEL, float volume);
void setStatusBarFrame(id self, SEL, CGRect frame);
void setModernStatusBarFrame(id self, SEL, CGRect frame);

} // namespace hooks
} // namespace panotra
