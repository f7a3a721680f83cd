/// poll, with an event of its own in the first place.
#include "simulator/desktop/DescriptorWatch.h"

#include <algorithm>
#include <csignal>
#include <cstdint>
#include <utility>

#include <sys/eventfd.h>

namespace panotra::sim {

using preferences::FileDescriptor;

DescriptorWatch::DescriptorWatch(std::function<void()> wake)
    : m_wake(std::move(wake))
    , m_news(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK))
{
    if (!m_news.isOpen())
        return;
    // Signals are the main thread's.
    sigset_t all;
    sigset_t before;
    sigfillset(&all);
    pthread_sigmask(SIG_SETMASK, &all, &before);
    m_thread = std::thread([this] { run(); });
    pthread_sigmask(SIG_SETMASK, &before, nullptr);
}

DescriptorWatch::~DescriptorWatch()
{
    if (!works())
        return;
    {
        const std::lock_guard lock(m_lock);
        m_isOver = true;
    }
    knock();
    m_thread.join();
}

void DescriptorWatch::waitFor(std::vector<pollfd> descriptors)
{
    {
        const std::lock_guard lock(m_lock);
        if (std::ranges::equal(descriptors, m_descriptors, {}, &pollfd::fd, &pollfd::fd))
            return;
        m_descriptors = std::move(descriptors);
    }
    knock();
}

void DescriptorWatch::knock() const
{
    const std::uint64_t once = 1;
    static_cast<void>(::write(m_news.get(), &once, sizeof once));
}

/// With the news before them; empty when it is over.
std::vector<pollfd> DescriptorWatch::waitedFor()
{
    const std::lock_guard lock(m_lock);
    if (m_isOver)
        return {};
    std::vector<pollfd> all { { m_news.get(), POLLIN, 0 } };
    all.insert(all.end(), m_descriptors.begin(), m_descriptors.end());
    return all;
}

void DescriptorWatch::run()
{
    for (auto all = waitedFor(); !all.empty(); all = waitedFor()) {
        constexpr int forever = -1;
        if (::poll(all.data(), all.size(), forever) <= 0)
            continue;
        if (all.front().revents != 0) {
            std::uint64_t count = 0;
            static_cast<void>(::read(m_news.get(), &count, sizeof count));
            continue;
        }
        {
            const std::lock_guard lock(m_lock);
            m_descriptors.clear();
        }
        m_wake();
    }
}

} // namespace panotra::sim
