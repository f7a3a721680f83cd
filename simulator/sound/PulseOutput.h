/// What libpulse says of an output, in our words.
#pragma once

#include "simulator/sound/ServerState.h"

#include <string>

struct pa_sink_info; // NOLINT: the name is libpulse's

namespace panotra::sound {

/// Null is empty.
std::string textOf(const char* characters);

Output outputOf(const pa_sink_info& sink);

} // namespace panotra::sound
