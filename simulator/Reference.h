/// What people are told of the scenario language and the trace, written from the tables by which they work.
#pragma once

#include <string>
#include <vector>

namespace panotra::sim {

/// The commands for a terminal, each with what it does.
std::string commandReference();

/// All that docs/scenario.md says below its introduction, in Markdown: commands, values, state, tree and events, each
/// with an example.
std::string wholeReference();

/// Of every event that a trace can hold.
std::vector<std::string> namesOfEvents();

} // namespace panotra::sim
