/// The program as a person has it run, and what it says of itself.
#pragma once

#include "tests/desktop/ServerProcess.h"

#include <cstdint>
#include <filesystem>
#include <map>
#include <string>

namespace panotra::testing {

class DesktopProcess {
public:
    struct Status {
        std::map<std::string, std::string> facts; ///< by the word before the colon
        std::map<std::string, std::uint32_t> remembered; ///< in steps of the server's scale, by the words for the pair

        bool operator==(const Status&) const = default;
    };

    /// `folder`: holds its settings and what it complains of.
    explicit DesktopProcess(std::filesystem::path folder);

    /// Answers once it knows the server.
    void start(const std::vector<std::string>& options = {});
    /// The answer waits until all that had happened before is done with. What one client of PipeWire's service sees
    /// another one sees a little later: several questions give it some time, one is enough for who asks again anyway.
    Status status(int questions = 3) const;
    int end(int signal) { return m_process.end(signal); }
    pid_t id() const { return m_process.id(); }

    std::string complaints() const;
    std::filesystem::path preferences() const { return m_folder / "preferences"; }

private:
    std::filesystem::path m_folder;
    ChildProcess m_process;
};

} // namespace panotra::testing
