/// What is told of a thing in the window when the pointer rests on it.
#pragma once

#include "simulator/window/Board.h"

#include <string>

namespace panotra::sim {

/// Its name and its key; empty where it says itself what it is.
std::string hintOf(const Spot& spot);

} // namespace panotra::sim
