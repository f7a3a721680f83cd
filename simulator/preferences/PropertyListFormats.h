/// The two formats of property lists, read and written.
///
/// A file is read as it is meant, whole, or not at all: what could be meant in two ways, or could not be written back
/// as it was, is refused. Reading takes time and memory in proportion to the file, within the limits of
/// PropertyListValue.h, whatever the file refers to.
#pragma once

#include "simulator/preferences/PropertyListValue.h"

#include <optional>
#include <string>
#include <string_view>

namespace panotra::preferences {

/// What was read, or why nothing was: the end of a sentence that begins with the file's name.
struct ReadValue {
    std::optional<Value> value;
    std::string objection {};
};

/// The mark with which a binary property list begins.
constexpr std::string_view binaryMark = "bplist00";

/// In UTF-8 or whatever encoding the file declares, of those that its reader knows. Comments are not kept.
ReadValue readXml(std::string_view bytes);
ReadValue readBinary(std::string_view bytes);

/// None: XML cannot hold one of the values: most control characters, parts of seconds, a Uid.
std::optional<std::string> writeXml(const Value& value);
/// None: a text is not UTF-8. What is equal is written once.
std::optional<std::string> writeBinary(const Value& value);

} // namespace panotra::preferences
