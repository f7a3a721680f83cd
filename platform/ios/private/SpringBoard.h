/// The home-screen process: classes of its own program, which no library can link against.
#pragma once

#include "platform/ios/Abi.h"
#include "platform/ios/Names.h"

namespace panotra::ios {

namespace classes {

/// The application object's class; it inherits `sharedApplication`.
inline constinit ClassName SpringBoard { "SpringBoard" };
/// The volume buttons up to iOS 12, and since 13. Both missing, they read as "mode 0, no button held".
inline constinit ClassName VolumeControl { "VolumeControl" };
inline constinit ClassName SBVolumeControl { "SBVolumeControl" };
/// The voice assistant.
inline constinit ClassName SBAssistantController { "SBAssistantController" };

} // namespace classes

namespace selectors {

/// Of the application: seconds. Up to 14.
inline constinit Selector<double()> windowRotationDuration { "windowRotationDuration" };
/// Of the application: the home screen's own bar, not that of the app in front. Up to 15.
inline constinit Selector<bool()> isSpringBoardStatusBarHidden { "isSpringBoardStatusBarHidden" };
/// Of the application: the same bar, as a view. Since 16.
inline constinit Selector<id()> statusBarForEmbeddedDisplay { "statusBarForEmbeddedDisplay" };
inline constinit Selector<id()> sharedVolumeControl { "sharedVolumeControl" };
/// Of the application: the buttons. Since 16, where their class has no shared instance any more.
inline constinit Selector<id()> volumeControl { "volumeControl" };
/// Of the assistant: null before it was first opened.
inline constinit Selector<id()> window { "window" };
/// Of a sound about to be played; not every class of sounds has it.
inline constinit Selector<NSInteger()> soundType { "soundType" };

} // namespace selectors
} // namespace panotra::ios
