/// Counts what the library asks of the process: every call of a function of the platform, and every message.
#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace panotra::hosts {

/// What was asked since the last `forgetCrossings`, in order: names of functions, and messages as "-[Class selector]"
/// or "+[Class selector]".
const std::vector<std::string>& crossings();
void forgetCrossings();
/// Nothing is recorded before the first time this is called with true.
void recordCrossings(bool record);

// For the stand-ins.

bool areCrossingsRecorded();
void noteCrossing(std::string_view what);

} // namespace panotra::hosts
