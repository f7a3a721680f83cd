/// flock and a socket of the file system.
#include "simulator/desktop/OneInstance.h"

#include <array>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <utility>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/socket.h>
#include <sys/time.h>
#include <sys/un.h>
#include <unistd.h>

namespace panotra::sim {

using preferences::FileDescriptor;

namespace {

constexpr int mostWaiting = 8;
constexpr time_t patienceSeconds = 10;

/// None, and the reason, where a session has no such folder.
std::optional<std::string> placeInSession(const char* name, std::string& failure)
{
    const char* const folder = std::getenv("XDG_RUNTIME_DIR");
    if (folder == nullptr || folder[0] != '/') {
        failure = "XDG_RUNTIME_DIR names no folder of this session";
        return std::nullopt;
    }
    std::string place = std::string(folder) + '/' + name;
    if (place.size() < sizeof(sockaddr_un::sun_path))
        return place;
    failure = "XDG_RUNTIME_DIR is longer than the name of a socket may be";
    return std::nullopt;
}

std::optional<std::string> socketOfSession(std::string& failure)
{
    return placeInSession("panotra-desktop.socket", failure);
}

sockaddr_un addressOf(const std::string& place)
{
    sockaddr_un address {};
    address.sun_family = AF_UNIX;
    std::memcpy(address.sun_path, place.c_str(), place.size() + 1);
    return address;
}

FileDescriptor openSocket()
{
    return FileDescriptor(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
}

std::string lastError(const std::string& place)
{
    return place + ": " + std::strerror(errno);
}

} // namespace

OneInstance::Begun OneInstance::begin(std::string& failure)
{
    const auto lock = placeInSession("panotra-desktop.lock", failure);
    const auto place = socketOfSession(failure);
    if (!lock || !place)
        return Begun::Failed;
    constexpr mode_t owner = 0600;
    m_lock = FileDescriptor(::open(lock->c_str(), O_RDWR | O_CREAT | O_CLOEXEC, owner));
    if (!m_lock.isOpen()) {
        failure = lastError(*lock);
        return Begun::Failed;
    }
    if (::flock(m_lock.get(), LOCK_EX | LOCK_NB) != 0) {
        failure = lastError(*lock);
        return errno == EWOULDBLOCK ? Begun::Second : Begun::Failed;
    }
    // Whatever lies there belongs to nobody: its owner would have the lock.
    ::unlink(place->c_str());
    m_door = openSocket();
    const sockaddr_un address = addressOf(*place);
    if (!m_door.isOpen() || ::bind(m_door.get(), reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0
        || ::listen(m_door.get(), mostWaiting) != 0 || ::fcntl(m_door.get(), F_SETFL, O_NONBLOCK) != 0) {
        failure = lastError(*place);
        return Begun::Failed;
    }
    m_socket = *place;
    return Begun::First;
}

OneInstance::~OneInstance()
{
    if (!m_socket.empty())
        ::unlink(m_socket.c_str());
}

std::optional<std::string> askRunningDesktop(const std::string& request, std::string& failure)
{
    const auto place = socketOfSession(failure);
    if (!place)
        return std::nullopt;
    const FileDescriptor connection = openSocket();
    const timeval patience { patienceSeconds, 0 };
    ::setsockopt(connection.get(), SOL_SOCKET, SO_RCVTIMEO, &patience, sizeof patience);
    const sockaddr_un address = addressOf(*place);
    const std::string line = request + '\n';
    if (::connect(connection.get(), reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0
        || ::send(connection.get(), line.data(), line.size(), MSG_NOSIGNAL) != static_cast<ssize_t>(line.size())) {
        failure = errno == ENOENT || errno == ECONNREFUSED ? "panotra desktop does not run" : lastError(*place);
        return std::nullopt;
    }
    std::string answer;
    std::array<char, 4096> part {};
    for (ssize_t size = 1; size > 0;) {
        size = ::recv(connection.get(), part.data(), part.size(), 0);
        if (size < 0 && errno == EINTR) {
            size = 1;
        } else if (size < 0) {
            failure = errno == EAGAIN ? "the panotra desktop that runs does not answer" : lastError(*place);
            return std::nullopt;
        } else {
            answer.append(part.data(), static_cast<std::size_t>(size));
        }
    }
    return answer;
}

} // namespace panotra::sim
