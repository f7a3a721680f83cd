/// The gesture framework: a library of its own that the user may have installed or not.
#pragma once

#include "platform/ios/Names.h"

namespace panotra::ios {

namespace classes {

inline constinit ClassName LAActivator { "LAActivator" };

} // namespace classes

namespace selectors {

/// The listener is asked for texts and icon, and sent the events, by the names of its methods.
inline constinit Selector<void(id listener, id name)> registerListener { "registerListener:forName:" };
/// Of an LAEvent.
inline constinit Selector<void(bool)> setHandled { "setHandled:" };

} // namespace selectors
} // namespace panotra::ios
