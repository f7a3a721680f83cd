/// A process that is stopped at each of its system calls, any of which can be made to fail.
#include "tests/faults/TracedProcess.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <iterator>
#include <utility>

#include <elf.h>
#include <sys/ptrace.h>
#include <sys/syscall.h>
#include <sys/uio.h>
#include <sys/user.h>
#include <sys/wait.h>
#include <unistd.h>

namespace panotra::preferences::testing {

namespace {

struct KnownCall {
    long number;
    const char* name;
};

/// What a save asks of files. Older processors have two calls for some of it.
constexpr KnownCall fileCalls[] = {
    { SYS_openat, "openat" },
    { SYS_read, "read" },
    { SYS_write, "write" },
    { SYS_fsync, "fsync" },
    { SYS_fstat, "fstat" },
    { SYS_newfstatat, "newfstatat" },
    { SYS_readlinkat, "readlinkat" },
    { SYS_faccessat, "faccessat" },
    { SYS_faccessat2, "faccessat2" },
    { SYS_flock, "flock" },
    { SYS_fchown, "fchown" },
    { SYS_fchmod, "fchmod" },
    { SYS_renameat, "renameat" },
    { SYS_renameat2, "renameat2" },
    { SYS_unlinkat, "unlinkat" },
    { SYS_mkdirat, "mkdirat" },
#ifdef SYS_rename
    { SYS_readlink, "readlink" },
    { SYS_rename, "rename" },
    { SYS_unlink, "unlink" },
    { SYS_mkdir, "mkdir" },
#endif
};

/// A close that fails has closed all the same.
constexpr long otherCalls[]
    = { SYS_brk, SYS_mmap, SYS_munmap, SYS_mprotect, SYS_mremap, SYS_madvise, SYS_futex, SYS_getrandom, SYS_gettid,
          SYS_getpid, SYS_tgkill, SYS_rt_sigprocmask, SYS_rt_sigtimedwait, SYS_clock_nanosleep, SYS_close };

/// The registers of a process that stands at a system call.
class Registers {
public:
    explicit Registers(pid_t process)
        : m_process(process)
    {
        iovec all { &m_registers, sizeof m_registers };
        ::ptrace(PTRACE_GETREGSET, process, NT_PRSTATUS, &all);
    }

#if defined(__x86_64__)
    long call() const
    {
        return static_cast<long>(m_registers.orig_rax);
    }
    unsigned long thirdArgument() const
    {
        return m_registers.rdx;
    }
    void setThirdArgument(unsigned long value)
    {
        m_registers.rdx = value;
        write();
    }
    void setResult(long result)
    {
        m_registers.rax = static_cast<unsigned long>(result);
        write();
    }
    void omitCall()
    {
        m_registers.orig_rax = static_cast<unsigned long>(-1);
        write();
    }
#elif defined(__aarch64__)
    long call() const
    {
        return static_cast<long>(m_registers.regs[8]);
    }
    unsigned long thirdArgument() const
    {
        return m_registers.regs[2];
    }
    void setThirdArgument(unsigned long value)
    {
        m_registers.regs[2] = value;
        write();
    }
    void setResult(long result)
    {
        m_registers.regs[0] = static_cast<unsigned long>(result);
        write();
    }
    void omitCall()
    {
        int none = -1;
        iovec number { &none, sizeof none };
        ::ptrace(PTRACE_SETREGSET, m_process, NT_ARM_SYSTEM_CALL, &number);
    }
#else
#error "The registers of this processor are not known here"
#endif

private:
    void write()
    {
        iovec all { &m_registers, sizeof m_registers };
        ::ptrace(PTRACE_SETREGSET, m_process, NT_PRSTATUS, &all);
    }

    pid_t m_process;
    user_regs_struct m_registers {};
};

void writeWords(int file, const std::string& words)
{
    std::size_t written = 0;
    while (written < words.size()) {
        const ssize_t count = ::write(file, words.data() + written, words.size() - written);
        if (count <= 0)
            ::_exit(1);
        written += static_cast<std::size_t>(count);
    }
}

} // namespace

std::string nameOfSystemCall(long number)
{
    const auto known = std::ranges::find(fileCalls, number, &KnownCall::number);
    return known == std::end(fileCalls) ? "?" : known->name;
}

TracedProcess::TracedProcess(const std::function<std::string()>& work)
{
    std::array<int, 2> pipe {};
    if (::pipe(pipe.data()) != 0)
        std::abort();
    m_id = ::fork();
    if (m_id == 0) {
        ::close(pipe[0]);
        ::ptrace(PTRACE_TRACEME, 0, nullptr, nullptr);
        ::raise(SIGSTOP);
        const std::string words = work();
        ::raise(SIGSTOP);
        writeWords(pipe[1], words);
        ::_exit(0);
    }
    ::close(pipe[1]);
    m_words = pipe[0];
    int status = 0;
    ::waitpid(m_id, &status, 0);
    ::ptrace(PTRACE_SETOPTIONS, m_id, nullptr, PTRACE_O_TRACESYSGOOD | PTRACE_O_EXITKILL);
}

TracedProcess::~TracedProcess()
{
    ::close(m_words);
    if (m_id < 0)
        return;
    ::kill(m_id, SIGKILL);
    int status = 0;
    while (::waitpid(m_id, &status, 0) < 0 && errno == EINTR) { }
}

/// Answers false once the work is done.
bool TracedProcess::stepToSystemCall()
{
    constexpr int systemCallStop = SIGTRAP | 0x80;
    long signal = 0;
    while (!m_isDone) {
        int status = 0;
        ::ptrace(PTRACE_SYSCALL, m_id, nullptr, signal);
        while (::waitpid(m_id, &status, 0) < 0 && errno == EINTR) { }
        if (WIFSTOPPED(status) && WSTOPSIG(status) == systemCallStop)
            return true;
        // It stops itself when it is done; any other signal is its own affair.
        if (!WIFSTOPPED(status))
            m_id = -1;
        m_isDone = m_id < 0 || WSTOPSIG(status) == SIGSTOP;
        signal = WIFSTOPPED(status) ? WSTOPSIG(status) : 0;
    }
    return false;
}

long TracedProcess::next()
{
    while (stepToSystemCall()) {
        m_isInCall = !m_isInCall;
        if (!m_isInCall && m_error != 0)
            Registers(m_id).setResult(-std::exchange(m_error, 0));
        const long number = m_isInCall ? Registers(m_id).call() : -1;
        if (m_isInCall && std::ranges::find(otherCalls, number) == std::end(otherCalls))
            return number;
    }
    return -1;
}

void TracedProcess::failWith(int error)
{
    m_error = error;
    Registers(m_id).omitCall();
}

bool TracedProcess::writeHalf()
{
    Registers registers(m_id);
    const bool isPossible = registers.call() == SYS_write && registers.thirdArgument() >= 2;
    if (isPossible)
        registers.setThirdArgument(registers.thirdArgument() / 2);
    return isPossible;
}

std::string TracedProcess::words()
{
    while (next() >= 0) { }
    if (m_id >= 0)
        ::ptrace(PTRACE_DETACH, m_id, nullptr, nullptr);
    std::string words;
    std::array<char, 4096> buffer {};
    for (;;) {
        const ssize_t count = ::read(m_words, buffer.data(), buffer.size());
        if (count < 0 && errno == EINTR)
            continue;
        if (count <= 0)
            return words;
        words.append(buffer.data(), static_cast<std::size_t>(count));
    }
}

} // namespace panotra::preferences::testing
