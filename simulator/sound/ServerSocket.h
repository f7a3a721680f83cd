/// Notices that the sound server's socket may have appeared.
#pragma once

#include <filesystem>
#include <optional>

namespace panotra::sound {

/// The folder in which the server of this session has its socket, as the environment says, or none where it is no file.
std::optional<std::filesystem::path> folderOfServerSocket();

/// A watch on a folder that need not be there yet: the nearest one above it is watched instead. It has no thread, as
/// sim::FolderWatch has: whoever has a loop waits for its descriptor. What is written in the folder is not noticed,
/// only what appears.
class SocketWatch {
public:
    explicit SocketWatch(std::filesystem::path folder);
    ~SocketWatch();
    SocketWatch(const SocketWatch&) = delete;
    SocketWatch& operator=(const SocketWatch&) = delete;

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
