/// Waits for descriptors on a thread of its own, for a loop that can only wait for something else: that of a window.
#pragma once

#include "simulator/preferences/FileDescriptor.h"

#include <poll.h>

#include <functional>
#include <mutex>
#include <thread>
#include <vector>

namespace panotra::sim {

class DescriptorWatch {
public:
    /// `wake` is called on the thread of the watch, once after each call of `waitFor`.
    explicit DescriptorWatch(std::function<void()> wake);
    /// `wake` is not called any more afterwards.
    ~DescriptorWatch();
    DescriptorWatch(const DescriptorWatch&) = delete;
    DescriptorWatch& operator=(const DescriptorWatch&) = delete;

    /// Whether the system had what it takes.
    bool works() const { return m_thread.joinable(); }
    /// Wakes once there is something about one of these, instead of those before. Whoever closes one of them calls this
    /// before another gets its number. Nothing wakes the thread where it waits for the same already.
    void waitFor(std::vector<pollfd> descriptors);

private:
    void run();
    void knock() const;
    std::vector<pollfd> waitedFor();

    std::function<void()> m_wake;
    preferences::FileDescriptor m_news; ///< readable: the list is another one, or it is over
    std::mutex m_lock;
    std::vector<pollfd> m_descriptors; ///< none once it has woken
    bool m_isOver = false;
    std::thread m_thread;
};

} // namespace panotra::sim
