/// A lock between processes that ends with its holder, however that ends.
#include "simulator/preferences/FileLock.h"

#include <cerrno>
#include <cstring>
#include <thread>

#include <fcntl.h>
#include <sys/file.h>

namespace panotra::preferences {

std::optional<std::string> FileLock::acquire(const std::filesystem::path& file, std::chrono::milliseconds patience)
{
    using Clock = std::chrono::steady_clock;
    constexpr std::chrono::milliseconds pause { 1 };

    // Reading is enough to lock, so that users who may not write each other's files can still wait for each other.
    constexpr int flags = O_RDONLY | O_CREAT | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK;
    FileDescriptor opened;
    do
        opened = FileDescriptor(::open(file.c_str(), flags, 0644));
    while (!opened.isOpen() && errno == EINTR);
    if (!opened.isOpen())
        return std::strerror(errno);
    const auto deadline = Clock::now() + patience;
    while (::flock(opened.get(), LOCK_EX | LOCK_NB) != 0) {
        if (errno == EINTR)
            continue;
        if (errno != EWOULDBLOCK)
            return std::strerror(errno);
        if (Clock::now() >= deadline)
            return "another program keeps it locked";
        std::this_thread::sleep_for(pause);
    }
    m_file = std::move(opened);
    return std::nullopt;
}

} // namespace panotra::preferences
