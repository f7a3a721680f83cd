/// A lock between processes that ends with its holder, however that ends.
#pragma once

#include "simulator/preferences/FileDescriptor.h"

#include <chrono>
#include <filesystem>
#include <optional>
#include <string>

namespace panotra::preferences {

/// The kernel's lock on a file that exists for nothing else. The file is never removed: whoever waits for it would
/// otherwise hold a lock on a file that nobody else finds.
class FileLock {
public:
    FileLock() = default;

    /// Waits at most `patience` for another holder; nothing is held after a failure.
    /// Answers why it failed, or none.
    std::optional<std::string> acquire(const std::filesystem::path& file, std::chrono::milliseconds patience);

private:
    FileDescriptor m_file;
};

} // namespace panotra::preferences
