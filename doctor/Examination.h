/// What the report says, a part a function. Two methods are stood in front of for a minute at most (PassingCall.h) and
/// put back; nothing else of the process is changed. Main thread.
#pragma once

#include <string_view>

namespace panotra::doctor {

/// System, device, processor, the hooking framework, and whether the mixer is loaded. Answers the system's first
/// number; 0 where it is not known.
int examineProcess();
/// Every row of the mixer's tables: what the process has of it. `system` tells which rows to expect; 0: all of them.
void examineTables(int system);
/// What the mixer would find of the volume buttons, the scenes of which its window joins one, the ways to an indicator,
/// the orientation, the status bars and the screen: where on later systems a step of the mixer's rests on memory. The
/// notes are those of docs/device.md.
void examineApplication(int system);
/// The active route, and which of the mixer's categories the audio service knows.
void examineAudioService();
/// Waits for the next announcement of the audio service and, on later systems, for the next turn of the screen, a
/// minute at most, and writes down the threads that they come on and what they hold. Ends the report then.
void awaitCalls(int system);

// What both the present and a later moment are asked for.

/// Mode and held buttons, as the mixer reads them.
void writeButtons(std::string_view beginning);
/// The orientation, as the mixer reads it.
void writeOrientation();

/// Whether the system is one of those on which steps rest on memory. 0, an unknown one, counts as such.
inline bool isLater(int system)
{
    return system == 0 || system >= 13;
}

} // namespace panotra::doctor
