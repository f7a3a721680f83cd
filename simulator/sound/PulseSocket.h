/// Notices that the sound server's socket may have appeared.
#pragma once

#include <filesystem>
#include <optional>

namespace panotra::sound {

/// The folder in which the server of this session has its socket, as the environment says, or none where it is no file.
std::optional<std::filesystem::path> folderOfServerSocket();

/// A watch on a folder, or on the nearest one above it as long as it is not there itself.
class FolderWatch {
public:
    explicit FolderWatch(std::filesystem::path folder);
    ~FolderWatch();
    FolderWatch(const FolderWatch&) = delete;
    FolderWatch& operator=(const FolderWatch&) = delete;

    /// Readable when something has appeared; -1 if the system has no watch to give.
    int descriptor() const { return m_notices; }
    /// Forgets what was noticed and watches what is there by now.
    void renew();

private:
    void watch();

    std::filesystem::path m_folder;
    int m_notices = -1;
    int m_watch = -1;
};

} // namespace panotra::sound
