/// Other processes, for tests in which several work on one file or one dies over it.
#include "tests/unit/preferences/ChildProcess.h"

#include <cerrno>

#include <sys/wait.h>
#include <unistd.h>

namespace panotra::preferences::testing {

namespace {

/// No exit handlers: they belong to the process that was copied.
[[noreturn]] void endAtOnce(int status)
{
    ::_exit(status);
}

void execute(std::vector<std::string>& command)
{
    std::vector<char*> arguments;
    for (std::string& word : command)
        arguments.push_back(word.data());
    arguments.push_back(nullptr);
    ::execv(arguments[0], arguments.data());
    endAtOnce(127);
}

} // namespace

ChildProcess::ChildProcess(const std::function<void()>& work)
    : m_id(::fork())
{
    if (m_id != 0)
        return;
    work();
    endAtOnce(0);
}

ChildProcess::ChildProcess(std::vector<std::string> command)
    : ChildProcess([&command] { execute(command); })
{
}

ChildProcess::~ChildProcess()
{
    if (m_isWaitedFor)
        return;
    kill();
    wait();
}

int ChildProcess::waitForStatus()
{
    while (!m_isWaitedFor && ::waitpid(m_id, &m_status, 0) < 0 && errno == EINTR) { }
    m_isWaitedFor = true;
    return m_status;
}

int ChildProcess::wait()
{
    const int status = waitForStatus();
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

bool ChildProcess::wasKilled()
{
    const int status = waitForStatus();
    return WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL;
}

} // namespace panotra::preferences::testing
