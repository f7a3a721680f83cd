/// The accessibility server of the home screen: the one way to open and close the voice assistant from inside.
#pragma once

#include "platform/ios/Names.h"

namespace panotra::ios {

namespace classes {

/// Its framework may be loaded late, or never.
inline constinit ClassName AXSpringBoardServer { "AXSpringBoardServer" };

} // namespace classes

namespace selectors {

inline constinit Selector<id()> server { "server" };
inline constinit Selector<bool()> isSiriVisible { "isSiriVisible" };
inline constinit Selector<void()> openSiri { "openSiri" };
inline constinit Selector<void()> dismissSiri { "dismissSiri" };

} // namespace selectors
} // namespace panotra::ios
