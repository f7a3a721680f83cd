/// What a library of the platform's file format imports and a shared object of this machine does not, or not so.
#pragma once

#include "tests/hosts/macho/MachImage.h"

namespace panotra::hosts {

/// Such an import by its C name; null for all others.
void* machImport(std::string_view name);

} // namespace panotra::hosts
