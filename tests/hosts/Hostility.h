/// A process that behaves as badly as a home screen may, in every way at once.
#pragma once

#include "simulator/device/View.h"

#include <cstddef>
#include <functional>
#include <map>
#include <optional>
#include <string>

namespace panotra::hosts {

/// From now on, until it is called with nothing; what is left to chance follows from `seed`:
/// - every other call of a hooked method comes from a thread of its own;
/// - one in twenty things that the library asks for after the launch raises, initialisers excepted;
/// - every other question for the active volume is refused, and poison left where the name would be;
/// - there is no status bar, every other time; no bundle but the process's own; no way to open the voice assistant;
/// - a content view has the size that its backdrop had at an earlier time, until it is asked for its layout;
/// - what follows an animation comes a turn later.
void beHostile(std::optional<unsigned> seed);
bool isHostile();

/// How often the outside has called a hooked method, by selector.
const std::map<std::string, std::size_t>& callsFromOutside();

// For the stand-ins.

/// Makes a call of the outside's, here or elsewhere; it is over when this returns.
void callFromOutside(const std::string& selector, const std::function<void()>& call);
/// True every other time.
bool refusesThisTime();
/// What a content view says of itself.
sim::Rect frameAtLastLayout(const sim::View& content);
void layOut(const sim::View& content);

} // namespace panotra::hosts
