/// The `state` event: everything worth knowing about the process, gathered without touching it.
#pragma once

#include "simulator/device/Device.h"
#include "simulator/scenario/FieldNote.h"
#include "simulator/scenario/Library.h"

#include <string>
#include <vector>

namespace panotra::sim {

/// The event's fields. Creates nothing: a controller that nobody has asked for yet stays away.
Json stateReport(Device& device, const Library& library);

/// What the reference has to say of the fields, those of `globals` left out. An example is the value as an `expect`
/// line has it, with what leads to it in a list before it, as in ".0 5".
std::vector<FieldNote> stateNotes();

/// The `expect` line of the note's example, with something real for what varies in its path.
std::string exampleOf(const FieldNote& note);

} // namespace panotra::sim
