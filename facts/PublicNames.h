/// The names by which programs know each other: processes, preference domains, notifications, gesture listeners.
#pragma once

namespace panotra {

/// The home screen's bundle: the one process in which there is a mixer.
inline constexpr const char* homeScreenBundle = "com.apple.springboard";

/// The mixer's package, which is also its preference domain.
inline constexpr const char* ownDomain = "net.qorvath.panotra";
/// The domain of a sibling tool, with which the mixer shares one setting.
inline constexpr const char* siblingDomain = "net.qorvath.brevane2";

namespace notification {
/// The mixer's own settings, or the shared one, were changed.
inline constexpr const char* ownSettingsChanged = "net.qorvath.panotra.settingschanged";
inline constexpr const char* siblingSettingsChanged = "net.qorvath.brevane2.settingschanged";
/// Its state says, outside the home screen, whether shakes count.
inline constexpr const char* shakeState = "net.qorvath.panotra.shake";
/// The home screen observes the first; a shake elsewhere posts the second.
inline constexpr const char* ownShaken = "net.qorvath.panotra.uikitshaken";
inline constexpr const char* siblingShaken = "net.qorvath.brevane2.uikitshaken";
/// Its state tells how the screen changed.
inline constexpr const char* screenChanged = "com.apple.springboard.screenchanged";
/// Asks the doctor for a report: its settings page posts it, or whoever has a shell.
inline constexpr const char* doctorAsked = "net.qorvath.panotra.doctor";
} // namespace notification

/// What the gesture framework sends an event to.
namespace listener {
inline constexpr const char* present = "net.qorvath.panotra.presentmixer";
inline constexpr const char* dismiss = "net.qorvath.panotra.dismissmixer";
inline constexpr const char* toggle = "net.qorvath.panotra.presentdismissmixer";
} // namespace listener

} // namespace panotra
