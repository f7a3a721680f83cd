/// What the report says, a part a function. Nothing is hooked, and nothing of the process is changed. Main thread.
#pragma once

namespace panotra::doctor {

/// System, device, processor, the hooking framework, and whether the mixer is loaded. Answers the system's first
/// number; 0 where it is not known.
int examineProcess();
/// Every row of the mixer's tables: what the process has of it. `system` tells which rows to expect; 0: all of them.
void examineTables(int system);
/// What the mixer would find of the volume buttons, the scene that its window belongs to, and the status bar.
void examineApplication();
/// The active route, and which of the mixer's categories the audio service knows.
void examineAudioService();
/// Waits for the next announcement of the audio service, a minute at most, and writes down the thread that it comes on
/// and what it holds. Ends the report then.
void awaitAnnouncement();

} // namespace panotra::doctor
