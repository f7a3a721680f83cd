/// Loads a Mach-O library into this process, which is of another system but of the same processor.
#pragma once

#include "tests/hosts/LibraryImage.h"

#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace panotra::hosts {

/// The address of an import by its C name, without the underscore of the file; null if there is none.
using ImportResolver = std::function<void*(std::string_view name)>;

/// Maps the library, binds all it imports, and runs its constructors. Names that the file itself does not carry are
/// read from the linker's map beside it, FILE with the ending .map. The image stays in the process.
///
/// Throws std::runtime_error, "PATH: reason", for a file that cannot be read, is damaged, is for another processor or
/// imports what the resolver does not know.
std::unique_ptr<LibraryImage> openMachImage(const std::string& path, const ImportResolver& resolver);

/// Whether the file begins as such a library does.
bool isMachFile(const std::string& path);

} // namespace panotra::hosts
