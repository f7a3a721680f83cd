/// What a library of the platform's file format imports and a shared object of this machine does not, or not so.
#pragma once

#include "tests/hosts/macho/MachImage.h"

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

namespace panotra::hosts {

/// Such an import by its C name; null for all others.
void* machImport(std::string_view name);

/// From now on an address in `memory` is one of the library that was loaded from `path`, for whoever asks by `dladdr`.
void addMachLibrary(std::span<const std::byte> memory, std::string path);

} // namespace panotra::hosts
