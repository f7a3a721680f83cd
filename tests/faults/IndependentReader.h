/// Another reader of property lists, which shares nothing with the program's own but the description of the formats.
///
/// It reads XML with another library, and is written to be plainly right rather than quick or careful of its memory.
#pragma once

#include "simulator/preferences/PropertyListValue.h"

#include <optional>
#include <string>

namespace panotra::preferences::testing {

/// All that the bytes mean, one text for one meaning; none: they are no property list, or hold what no reader may take
/// in, since it could be meant in two ways or could not be written back.
std::optional<std::string> meaningOfXml(const std::string& bytes);
std::optional<std::string> meaningOfBinary(const std::string& bytes);

/// The same text for what the program has read.
std::string meaningOf(const Value& value);

} // namespace panotra::preferences::testing
