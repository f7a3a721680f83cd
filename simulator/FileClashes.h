/// Files that a command line names and that must not be one and the same.
#pragma once

#include <filesystem>
#include <optional>
#include <span>
#include <string>

namespace panotra::sim {

struct NamedFile {
    enum class Use {
        Read,
        Written, ///< emptied when it is opened, or made
        Preferences, ///< a folder of property lists, which come and go
    };

    std::string words; ///< what a complaint calls it, as "--trace"
    std::filesystem::path path;
    Use use;
};

/// The first of `others` that would suffer if `file` were written as well: one that is read or written itself, whatever
/// links lead to it, or a folder of preferences in which the file would be taken for one of its own. Null if there is
/// none. Devices and pipes may be read and written at once, and anybody may write to /dev/null.
const NamedFile* clashWith(const NamedFile& file, std::span<const NamedFile> others);

/// What is wrong with the files of a command line, in a line, or nothing.
std::optional<std::string> clashAmong(std::span<const NamedFile> files);

/// Whether `relative`, from `folder` on, stays in the folder or below it whatever links are on the way. Nothing of it
/// needs to be there.
bool staysBelow(const std::filesystem::path& folder, const std::filesystem::path& relative);

} // namespace panotra::sim
