/// Servers as a session starts them, in a folder that goes with them.
#include "tests/desktop/ServerProcess.h"

#include "tests/desktop/SoundClient.h"

#include <csignal>
#include <cstdlib>
#include <fstream>

#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace panotra::testing {

namespace {

std::vector<std::string> wordsFor(ServerKind kind, const std::filesystem::path& folder)
{
    if (kind == ServerKind::PulseAudio) {
        return { "pulseaudio", "-n", "-F", (folder / "pulse.conf").string(), "--daemonize=no", "--exit-idle-time=-1",
            "--use-pid-file=no", "--realtime=no", "--high-priority=no", "--disable-shm=yes" };
    }
    // The session manager wants a bus.
    // Each has to find the one before it; each ends with the one that started it.
    constexpr const char* script = "setpriv --pdeathsig KILL pipewire & "
                                   "until [ -S \"$XDG_RUNTIME_DIR/pipewire-0\" ]; do sleep 0.02; done; "
                                   "setpriv --pdeathsig KILL wireplumber & "
                                   "setpriv --pdeathsig KILL pipewire-pulse & wait";
    return { "dbus-run-session", "--", "setpriv", "--pdeathsig", "KILL", "sh", "-c", script };
}

} // namespace

void ChildProcess::start(const std::vector<std::string>& words, const std::filesystem::path& output)
{
    ::prctl(PR_SET_CHILD_SUBREAPER, 1);
    std::vector<char*> arguments;
    for (const std::string& word : words)
        arguments.push_back(const_cast<char*>(word.c_str()));
    arguments.push_back(nullptr);
    m_id = ::fork();
    if (m_id != 0)
        return;
    ::setpgid(0, 0);
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    const int file = ::open(output.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600);
    ::dup2(file, STDOUT_FILENO);
    ::dup2(file, STDERR_FILENO);
    ::execvp(arguments[0], arguments.data());
    ::_exit(127);
}

int ChildProcess::end(int signal)
{
    if (!runs())
        return 0;
    ::kill(-m_id, signal);
    int status = 0;
    ::waitpid(m_id, &status, 0);
    // What it started has become ours.
    ::kill(-m_id, SIGKILL);
    while (::waitpid(-m_id, nullptr, 0) > 0) { }
    m_id = -1;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}

ChildProcess::~ChildProcess()
{
    end(SIGKILL);
}

ServerProcess::ServerProcess(ServerKind kind)
    : m_kind(kind)
{
    std::string name = (std::filesystem::temp_directory_path() / "sound-XXXXXX").string();
    m_folder = ::mkdtemp(name.data());
    std::ofstream(m_folder / "pulse.conf") << "load-module module-native-protocol-unix auth-anonymous=1\n"
                                              "load-module module-device-restore\n"
                                              "load-module module-stream-restore\n"
                                              "load-module module-always-sink\n"
                                              // An output that plays is asked on a thread of its own whenever
                                              // anybody asks for all of them: in a session most of them sleep.
                                              "load-module module-suspend-on-idle timeout=0\n";
    ::setenv("XDG_RUNTIME_DIR", m_folder.c_str(), 1);
    ::setenv("HOME", m_folder.c_str(), 1);
    ::setenv("PULSE_SERVER", ("unix:" + (m_folder / "pulse" / "native").string()).c_str(), 1);
    for (const char* const variable : { "XDG_CONFIG_HOME", "XDG_STATE_HOME", "XDG_DATA_HOME", "DISPLAY",
             "WAYLAND_DISPLAY", "DBUS_SESSION_BUS_ADDRESS" })
        ::unsetenv(variable);
}

ServerProcess::~ServerProcess()
{
    kill();
    std::error_code error;
    std::filesystem::remove_all(m_folder, error);
}

void ServerProcess::start()
{
    m_process.start(wordsFor(m_kind, m_folder), m_folder / "server.log");
    SoundClient client;
    for (const KnownOutputKind& kind : knownOutputKinds)
        client.addOutput(kind.name, kind.formFactor, kind.bus);
    client.useOutput("speaker");
    for (const KnownOutputKind& kind : knownOutputKinds)
        client.setVolume(kind.name, fullScale);
}

} // namespace panotra::testing
