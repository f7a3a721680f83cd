/// What stands before the property list library: it is shown only what it carries through a rewrite unharmed.
///
/// The library recurses into what is nested, unfolds what a binary file shares, cuts integers of more than 64 bits,
/// strings at a NUL, dates at the second, and reads what is no number as zero. A file with any of these in it would
/// crash the program or come back poorer than it was.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace panotra::preferences {

/// No file of preferences comes near these.
constexpr std::size_t largestFileBytes = 4u << 20;
constexpr std::size_t deepestNesting = 128;
constexpr std::size_t mostValues = 1u << 16;

/// The mark with which a binary property list begins.
constexpr std::string_view binaryMark = "bplist00";

/// Why the file is not taken in, as the end of a sentence that begins with its name; none: it is.
std::optional<std::string> objectionTo(std::string_view bytes);

// One for each format.
std::optional<std::string> objectionToXml(std::string_view xml);
std::optional<std::string> objectionToBinary(std::string_view bytes);

} // namespace panotra::preferences
