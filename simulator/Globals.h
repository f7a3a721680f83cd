/// The library's process-wide values as the trace tells them.
#pragma once

#include "simulator/device/Device.h"
#include "simulator/scenario/FieldNote.h"

#include <vector>

namespace panotra {
struct ProcessValues;
}

namespace panotra::sim {

/// By their names, in the order of the trace. `category`: the text of `globalCategory` or null; reading it is up to
/// whoever knows what strings are made of.
Json globalsReport(const ProcessValues& values, const Json& category);

/// What the reference has to say of them: paths into the state, examples as an `expect` line has them.
std::vector<FieldNote> globalsNotes();

} // namespace panotra::sim
