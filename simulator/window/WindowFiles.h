/// The files that the command line of a window names.
#pragma once

#include "simulator/Files.h"
#include "simulator/window/OpenWindow.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace panotra::sim {

/// Where settings live: an absolute path, so that it stays the same folder whatever happens. None where a scenario
/// brings its own, and after a complaint where there is no such place; `isMissing` says so.
std::optional<std::string> preferencesFolderOf(const WindowOptions& options, bool& isMissing);

/// What is wrong with the files that were named, in a line, or nothing: two that are one, and one that is there already
/// and would be overwritten.
std::optional<std::string> mistakeInFiles(const WindowOptions& options, const std::optional<std::string>& preferences);

/// A file that is written as the session goes on, if one was asked for.
class WindowOutput {
public:
    WindowOutput(const std::optional<std::string>& name, bool mayOverwrite);

    std::function<void(std::string_view)> sink();
    /// Answers whether all of it is written, after a complaint if not.
    bool isWell();
    bool close();

private:
    std::optional<OutputFile> m_file;
};

} // namespace panotra::sim
