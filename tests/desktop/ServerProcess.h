/// A sound server of its own in a folder of its own, with an output of every kind.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include <sys/types.h>

namespace panotra::testing {

enum class ServerKind { PulseAudio, PipeWire };

/// A child process and all that it starts, killed with this.
class ChildProcess {
public:
    ChildProcess() = default;
    /// `words`: the program and its arguments. Its output goes to the file.
    void start(const std::vector<std::string>& words, const std::filesystem::path& output);
    /// Answers its exit status, or minus the signal that ended it.
    int end(int signal);
    pid_t id() const { return m_id; }
    bool runs() const { return m_id > 0; }
    ~ChildProcess();
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;

private:
    pid_t m_id = -1;
};

/// What the null sinks stand for; their names are their form factors, with "air-" before those by Bluetooth.
struct KnownOutputKind {
    const char* name;
    const char* formFactor;
    const char* bus;
    const char* route; ///< null: none with a slot
};
inline constexpr KnownOutputKind knownOutputKinds[] = {
    { "speaker", "speaker", "", "Speaker" },
    { "handset", "handset", "", "Receiver" },
    { "headphone", "headphone", "", "Headphone" },
    { "headset", "headset", "", "Headset" },
    { "air-headphone", "headphone", "bluetooth", "HeadphonesBT" },
    { "air-headset", "headset", "bluetooth", "HeadsetBT" },
    { "tv", "tv", "", nullptr },
};

class ServerProcess {
public:
    /// Sets the environment of this process so that the server's clients find it.
    explicit ServerProcess(ServerKind kind);
    ~ServerProcess();

    /// Answers once it can be spoken to and has its outputs; the speaker is the default, all are at full volume.
    void start();
    void kill() { m_process.end(9); }

    const std::filesystem::path& folder() const { return m_folder; }
    ServerKind kind() const { return m_kind; }

private:
    ServerKind m_kind;
    std::filesystem::path m_folder;
    ChildProcess m_process;
};

} // namespace panotra::testing
