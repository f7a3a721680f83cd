/// Two other people's indicator overlays. Both are known by these names alone; without them nothing happens.
#pragma once

#include "platform/ios/Names.h"

namespace panotra::ios {

namespace classes {

/// Its overlay is the first subview of its shared window.
inline constinit ClassName MeliorWindow { "MeliorWindow" };
inline constinit ClassName ABVolumeHUDManager { "ABVolumeHUDManager" };

} // namespace classes

namespace selectors {

inline constinit Selector<id()> sharedManager { "sharedManager" };
/// Shows and hides the overlay by its own rules.
inline constinit Selector<id()> visibilityManager { "visibilityManager" };
inline constinit Selector<void()> hideImmediatelyIfPossible { "hideImmediatelyIfPossible" };
/// The overlay itself.
inline constinit Selector<id()> targetView { "targetView" };

} // namespace selectors
} // namespace panotra::ios
