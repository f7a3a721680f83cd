/// Started like any program, asked through its socket.
#include "tests/desktop/DesktopProcess.h"

#include "simulator/desktop/DesktopRequests.h"
#include "simulator/desktop/OneInstance.h"

#include <chrono>
#include <cstdlib>
#include <fstream>
#include <optional>
#include <sstream>
#include <thread>
#include <utility>

namespace panotra::testing {

DesktopProcess::DesktopProcess(std::filesystem::path folder)
    : m_folder(std::move(folder))
{
    std::filesystem::create_directories(m_folder);
}

void DesktopProcess::start(const std::vector<std::string>& options)
{
    std::vector<std::string> words { PANOTRA_PROGRAM, "desktop", "--headless", "--prefs", preferences().string() };
    words.insert(words.end(), options.begin(), options.end());
    m_process.start(words, m_folder / "complaints");
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(60);
    for (std::string server = "none"; server == "none"; server = status(1).facts["Server"]) {
        if (std::chrono::steady_clock::now() > deadline)
            std::abort();
        std::this_thread::sleep_for(std::chrono::milliseconds(2));
    }
}

DesktopProcess::Status DesktopProcess::status(int questions) const
{
    std::string failure;
    std::optional<std::string> text;
    for (int i = 0; i < questions; ++i)
        text = sim::askRunningDesktop(sim::request::status, failure);
    Status status;
    status.facts["Server"] = "none";
    std::istringstream lines(text.value_or(std::string()));
    for (std::string line; std::getline(lines, line);) {
        const auto colon = line.find(": ");
        const auto steps = line.find('(');
        if (colon == std::string::npos)
            continue;
        if (line.starts_with("  "))
            status.remembered[line.substr(2, colon - 2)]
                = static_cast<std::uint32_t>(std::stoul(line.substr(steps + 1)));
        else
            status.facts[line.substr(0, colon)] = line.substr(colon + 2);
    }
    return status;
}

std::string DesktopProcess::complaints() const
{
    std::ostringstream text;
    text << std::ifstream(m_folder / "complaints").rdbuf();
    return text.str();
}

} // namespace panotra::testing
