/// Files that are read whole and replaced whole: whoever looks finds the old bytes or the new ones.
#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace panotra::preferences {

/// Why something could not be done, as a person says it; none: it was done.
using Failure = std::optional<std::string>;

struct FileContents {
    /// None: there is no file, or it could not be read.
    std::optional<std::string> bytes;
    Failure failure;
};

/// Reads a regular file; one that is larger than `limit` bytes is read no further than one byte beyond.
FileContents readFile(const std::filesystem::path& file, std::size_t limit);

/// Follows symbolic links to where the file is, or would be, so that it can be replaced there and the links stay.
Failure followLinks(std::filesystem::path& file);

/// Makes the folder and those above it, for the user alone, as the base directory rules ask.
Failure makeFolders(const std::filesystem::path& folder);

struct Replacement {
    /// Why the file is still the old one; none: it is the new one.
    Failure failure {};
    /// Why the new file, though it is there for everybody, might be gone after a power failure.
    Failure doubt {};
};

/// Replaces the file with another of these bytes, or makes it. Its permissions stay, and its owner where that is
/// allowed; a new one gets what the user's mask leaves. The bytes are on the disk before the name is given to them.
/// The caller is the only one to replace this file meanwhile: what an interrupted replacement left is removed.
Replacement replaceFile(const std::filesystem::path& file, std::string_view bytes);

/// Renames the file to its name with ".unreadable-1" behind it, or the first number that is free.
Failure setAside(const std::filesystem::path& file, std::filesystem::path& newName);

/// The longest ending that any of these, or a lock, gives to a name, and the dot before it.
constexpr std::size_t longestDecoration = sizeof(".unreadable-9999");

} // namespace panotra::preferences
