/// A process that is stopped at each of its system calls, any of which can be made to fail.
#pragma once

#include <functional>
#include <string>

#include <sys/types.h>

namespace panotra::preferences::testing {

/// A copy of this process that does some work. What has nothing to do with files - memory, signals, sleep - and what
/// cannot fail does not count as a call.
class TracedProcess {
public:
    /// `work` answers what the process has to say.
    explicit TracedProcess(const std::function<std::string()>& work);
    TracedProcess(const TracedProcess&) = delete;
    TracedProcess& operator=(const TracedProcess&) = delete;
    /// Kills it if the work is not done.
    ~TracedProcess();

    /// Goes on to the next call. Answers its number in the kernel's list, or -1 when the work is done.
    long next();
    /// The call at which it stands is not made, and fails with this error.
    void failWith(int error);
    /// The call at which it stands writes half of what it should. Answers false if it is no write of two bytes or more.
    bool writeHalf();

    /// Lets it end; what it had to say.
    std::string words();

private:
    bool stepToSystemCall();

    pid_t m_id = -1;
    int m_words = -1;
    bool m_isInCall = false;
    bool m_isDone = false;
    int m_error = 0; ///< of the call at which it stands; 0: it is made
};

/// "?" for one that a save is not known to make.
std::string nameOfSystemCall(long number);

} // namespace panotra::preferences::testing
