/// Text from outside, made safe to show: what a scenario holds may end up in a terminal.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace panotra::sim {

/// Where the first byte stands that is not part of well-formed UTF-8 or is NUL; none if all is well.
std::optional<std::size_t> firstBadByte(std::string_view text);

/// Well-formed UTF-8 with its control characters written as escapes, so that it stays on one line and drives no
/// terminal.
std::string printable(std::string_view text);

/// `text` between double quotes, printable, as a scenario would have it.
std::string inQuotes(std::string_view text);

} // namespace panotra::sim
