/// The process into which the library is loaded.
#pragma once

#include <optional>
#include <string>

namespace panotra::hosts {

/// Starts Foundation, as the device has it. `prepareProcess` does it, too; a process that makes others of itself does
/// it once for all of them.
void startFoundation();
/// Sets Objective-C classes in front of the device that lives now. Before the library is loaded; a second time nothing
/// happens.
void prepareProcess();
/// The text of a string object; nothing for null.
std::optional<std::string> textOfString(void* string);

} // namespace panotra::hosts
