/// The audio service. Its class belongs to a private media framework and has changed from one to another, so that it
/// can only be found by name. Its levels are 32-bit floats; doubles would travel in the wrong shape.
#pragma once

#include "platform/ios/Names.h"

namespace panotra::ios {

namespace classes {

inline constinit ClassName AVSystemController { "AVSystemController" };
/// The home screen's own memory of what the audio service said, since iOS 13.
inline constinit ClassName SBAVSystemControllerCache { "SBAVSystemControllerCache" };

} // namespace classes

namespace selectors {

inline constinit Selector<id()> sharedAVSystemController { "sharedAVSystemController" };
/// One of the methods that are hooked: a message goes through every hook, ours included.
inline constinit Selector<bool(float level, id category)> setVolumeTo { "setVolumeTo:forCategory:" };
/// The level is an out-parameter, unwritten where the answer is false.
inline constinit Selector<bool(float* level, id category)> getVolume { "getVolume:forCategory:" };
/// Answers whatever kind of object the attribute has, null for one that it does not know.
inline constinit Selector<id(id attribute)> attributeForKey { "attributeForKey:" };
/// Of the memory: the active route.
inline constinit Selector<id()> activeAudioRoute { "activeAudioRoute" };

} // namespace selectors
} // namespace panotra::ios
