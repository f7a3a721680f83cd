/// The name that most singletons of home-screen programs go by.
#pragma once

#include "platform/ios/Names.h"

namespace panotra::ios::selectors {

inline constinit Selector<id()> sharedInstance { "sharedInstance" };

} // namespace panotra::ios::selectors
