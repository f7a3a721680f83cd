/// The folders around a file, as text: where a package may have been installed below.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace panotra::ios {

/// Longer paths the platform has none.
constexpr std::size_t longestPath = 1024;

/// Leaves FOLDER + `path` as C text in `text`, FOLDER being the innermost folder around the file `inside`, or the one
/// around that, `level` times outwards; the outermost is the root, which is "". `path` begins with a slash, and so does
/// `inside`. False where there is no such folder, or the text would be too long.
bool pathInFolderAround(
    std::string_view inside, std::size_t level, std::string_view path, std::array<char, longestPath>& text) noexcept;

} // namespace panotra::ios
