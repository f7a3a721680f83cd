/// What the public interface has of scenes, since iOS 13.
#pragma once

#include "platform/ios/Abi.h"
#include "platform/ios/Names.h"

namespace panotra::ios::selectors {

/// UIApplication: a set.
inline constinit Selector<id()> connectedScenes { "connectedScenes" };
/// Of a scene of windows.
inline constinit Selector<id()> sceneScreen { "screen" };
/// UIWindow.
inline constinit Selector<void(id)> setWindowScene { "setWindowScene:" };

} // namespace panotra::ios::selectors
