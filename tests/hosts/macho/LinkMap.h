/// The names that a library was linked with, from the map that the linker wrote.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>

namespace panotra::hosts {

/// The address of each name, as the file's own addresses count. Names have the underscore that C names get.
using LinkMap = std::map<std::string, std::uint64_t>;

/// Reads the lines "ADDRESS, SIZE, [FILE] NAME" of a map's section "# Symbols:"; others are passed over.
LinkMap readLinkMap(std::string_view text);

} // namespace panotra::hosts
