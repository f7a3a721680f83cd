/// A few visitors at a time, none of whom can hold up the mixer.
#include "simulator/desktop/DesktopRequests.h"

#include <array>
#include <cerrno>
#include <utility>

#include <sys/socket.h>

namespace panotra::sim {

namespace {

constexpr std::size_t mostVisitors = 16;
constexpr std::size_t longestRequest = 64;

} // namespace

DesktopRequests::DesktopRequests(int door, Take take)
    : m_door(door)
    , m_take(std::move(take))
{
}

void DesktopRequests::addTo(std::vector<pollfd>& waitingFor) const
{
    waitingFor.push_back({ m_door, POLLIN, 0 });
    for (const Visitor& visitor : m_visitors)
        waitingFor.push_back({ visitor.connection.get(), POLLIN, 0 });
}

void DesktopRequests::serve()
{
    admit();
    for (Visitor& visitor : m_visitors) {
        listenTo(visitor);
        answer(visitor);
    }
    std::erase_if(m_visitors, [](const Visitor& visitor) { return visitor.isDone; });
}

void DesktopRequests::admit()
{
    for (;;) {
        preferences::FileDescriptor connection(::accept4(m_door, nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK));
        if (!connection.isOpen())
            return;
        // Who came first has had the longest time to say something.
        if (m_visitors.size() == mostVisitors)
            m_visitors.erase(m_visitors.begin());
        m_visitors.push_back({ std::move(connection) });
    }
}

void DesktopRequests::listenTo(Visitor& visitor) const
{
    std::array<char, longestRequest> words {};
    const ssize_t size = ::recv(visitor.connection.get(), words.data(), words.size(), 0);
    if (size < 0) {
        visitor.isDone = errno != EAGAIN && errno != EINTR;
        return;
    }
    if (size == 0 || visitor.answer) {
        visitor.isDone = true; // gone, or says more than it should
        return;
    }
    visitor.line.append(words.data(), static_cast<std::size_t>(size));
    const auto end = visitor.line.find('\n');
    if (end != std::string::npos)
        visitor.answer = m_take(visitor.line.substr(0, end));
    visitor.isDone = end == std::string::npos ? visitor.line.size() >= longestRequest : !visitor.answer;
}

void DesktopRequests::answer(Visitor& visitor)
{
    if (visitor.isDone || !visitor.answer)
        return;
    const auto text = visitor.answer();
    if (!text)
        return;
    // It fits into the socket, or whoever asked is not there any more.
    static_cast<void>(::send(visitor.connection.get(), text->data(), text->size(), MSG_NOSIGNAL));
    visitor.isDone = true;
}

} // namespace panotra::sim
