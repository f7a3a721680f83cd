/// The environment as libpulse reads it, and inotify.
#include "simulator/sound/ServerSocket.h"

#include <array>
#include <cstdlib>
#include <string_view>
#include <utility>

#include <sys/inotify.h>
#include <unistd.h>

namespace panotra::sound {

namespace {

/// Empty counts as not set.
std::string_view environment(const char* name)
{
    const char* const value = std::getenv(name);
    return value == nullptr ? std::string_view() : value;
}

} // namespace

std::optional<std::filesystem::path> folderOfServerSocket()
{
    if (std::string_view server = environment("PULSE_SERVER"); !server.empty()) {
        constexpr std::string_view byFile = "unix:";
        if (server.starts_with(byFile))
            server.remove_prefix(byFile.size());
        return server.starts_with('/') ? std::optional(std::filesystem::path(server).parent_path()) : std::nullopt;
    }
    if (const auto folder = environment("PULSE_RUNTIME_PATH"); !folder.empty())
        return folder;
    if (const auto folder = environment("XDG_RUNTIME_DIR"); !folder.empty())
        return std::filesystem::path(folder) / "pulse";
    return std::nullopt;
}

SocketWatch::SocketWatch(std::filesystem::path folder)
    : m_folder(std::move(folder))
    , m_notices(inotify_init1(IN_CLOEXEC | IN_NONBLOCK))
{
    watch();
}

SocketWatch::~SocketWatch()
{
    if (m_notices >= 0)
        ::close(m_notices);
}

void SocketWatch::renew()
{
    std::array<char, 4096> notices {};
    while (::read(m_notices, notices.data(), notices.size()) > 0) { }
    watch();
}

void SocketWatch::watch()
{
    std::error_code error;
    std::filesystem::path place = m_folder;
    while (!std::filesystem::is_directory(place, error) && place.has_relative_path())
        place = place.parent_path();
    // Taking a watch away is something to notice, too: only if it has to be.
    const int before = std::exchange(m_watch, inotify_add_watch(m_notices, place.c_str(), IN_CREATE | IN_MOVED_TO));
    if (before >= 0 && before != m_watch)
        inotify_rm_watch(m_notices, before);
}

} // namespace panotra::sound
