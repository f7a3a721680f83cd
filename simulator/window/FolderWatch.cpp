/// inotify: the kernel tells, nobody asks again and again.
#include "simulator/window/FolderWatch.h"

#include <poll.h>
#include <sys/eventfd.h>
#include <sys/inotify.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdint>
#include <cstring>
#include <utility>

namespace panotra::sim {

using preferences::FileDescriptor;

namespace {

struct News {
    bool isOfFile = false;
    bool isFolderGone = false;
};

constexpr std::uint32_t folderGone = IN_DELETE_SELF | IN_MOVE_SELF;

/// What the notices say; those about locks and files on their way say nothing.
News newsIn(const char* notices, std::size_t size, const std::function<bool(std::string_view)>& concerns)
{
    News news;
    for (std::size_t position = 0; position + sizeof(inotify_event) <= size;) {
        inotify_event notice;
        std::memcpy(&notice, notices + position, sizeof notice);
        position += sizeof notice;
        // Too many at once, and some are lost: one may have been.
        if ((notice.mask & IN_Q_OVERFLOW) != 0 || (notice.len > 0 && concerns(notices + position)))
            news.isOfFile = true;
        if ((notice.mask & (folderGone | IN_UNMOUNT)) != 0)
            news.isFolderGone = true;
        position += notice.len;
    }
    return news;
}

} // namespace

std::unique_ptr<FolderWatch> FolderWatch::make(const std::string& folder, Ears ears, std::string& failure)
{
    std::unique_ptr<FolderWatch> watch(new FolderWatch);
    watch->m_notices = FileDescriptor(inotify_init1(IN_CLOEXEC | IN_NONBLOCK));
    watch->m_end = FileDescriptor(eventfd(0, EFD_CLOEXEC));
    constexpr std::uint32_t replacedOrGone = IN_CLOSE_WRITE | IN_MOVED_TO | IN_MOVED_FROM | IN_DELETE;
    if (!watch->m_notices.isOpen() || !watch->m_end.isOpen()
        || inotify_add_watch(watch->m_notices.get(), folder.c_str(), replacedOrGone | folderGone) < 0) {
        failure = std::strerror(errno);
        return nullptr;
    }
    // Signals are the main thread's.
    sigset_t all;
    sigset_t before;
    sigfillset(&all);
    pthread_sigmask(SIG_SETMASK, &all, &before);
    watch->m_thread = std::thread([&self = *watch, ears = std::move(ears)] { self.run(ears); });
    pthread_sigmask(SIG_SETMASK, &before, nullptr);
    return watch;
}

FolderWatch::~FolderWatch()
{
    if (!m_thread.joinable())
        return;
    const std::uint64_t one = 1;
    static_cast<void>(::write(m_end.get(), &one, sizeof one));
    m_thread.join();
}

void FolderWatch::run(const Ears& ears) const
{
    alignas(inotify_event) std::array<char, 4096> notices {};
    while (waitForNotices()) {
        const auto size = ::read(m_notices.get(), notices.data(), notices.size());
        if (size < 0 && errno != EINTR && errno != EAGAIN)
            return;
        const News news = newsIn(notices.data(), static_cast<std::size_t>(std::max<ssize_t>(size, 0)), ears.concerns);
        if (news.isOfFile)
            ears.changed();
        if (news.isFolderGone)
            return ears.gone();
    }
}

/// Answers false when the watch is to end.
bool FolderWatch::waitForNotices() const
{
    std::array<pollfd, 2> waitingFor { pollfd { m_notices.get(), POLLIN, 0 }, pollfd { m_end.get(), POLLIN, 0 } };
    constexpr int forever = -1;
    int ready = 0;
    do
        ready = poll(waitingFor.data(), waitingFor.size(), forever);
    while (ready < 0 && errno == EINTR);
    return ready > 0 && waitingFor[1].revents == 0;
}

} // namespace panotra::sim
