/// Other processes, for tests in which several work on one file or one dies over it.
#pragma once

#include <csignal>
#include <functional>
#include <string>
#include <vector>

#include <sys/types.h>

namespace panotra::preferences::testing {

/// A process that this one started, killed at the latest when the test is over.
class ChildProcess {
public:
    /// A copy of this process that does `work` and ends with status 0.
    explicit ChildProcess(const std::function<void()>& work);
    /// A program of its own: its file, then its arguments.
    explicit ChildProcess(std::vector<std::string> command);
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;
    ~ChildProcess();

    pid_t id() const { return m_id; }
    void kill() const { ::kill(m_id, SIGKILL); }
    /// Waits until it ends; its exit status, or -1 if a signal ended it.
    int wait();
    /// Waits for it. Whether it was killed from outside and had not ended by itself.
    bool wasKilled();

private:
    int waitForStatus();

    pid_t m_id;
    bool m_isWaitedFor = false;
    int m_status = 0; ///< as the system tells it, once it is waited for
};

} // namespace panotra::preferences::testing
