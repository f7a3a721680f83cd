/// Where preferences live when nobody says otherwise.
#pragma once

#include <filesystem>
#include <optional>

namespace panotra::preferences {

/// `$XDG_DATA_HOME/panotra/preferences`, or `~/.local/share/panotra/preferences` where that variable is not set to an
/// absolute path. None: the user has no home folder.
std::optional<std::filesystem::path> defaultFolder();

} // namespace panotra::preferences
