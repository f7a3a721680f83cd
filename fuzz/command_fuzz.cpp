/// Feeds command lines to `panotra prefs` and `panotra picture`, a word a line. Each ends with a documented status; a
/// wrong one is told in one line.
///
/// Files are named in a folder of its own: a word with a slash in it is not tried.
#include "simulator/LinkedLibrary.h"
#include "simulator/commands/Commands.h"
#include "simulator/picture/SinglePicture.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <string>
#include <string_view>
#include <vector>

namespace {

using namespace panotra::sim;

/// An empty folder, in which the process stands and which counts as the user's home.
class Folder {
public:
    Folder()
    {
        std::string name = (std::filesystem::temp_directory_path() / "panotra-command-fuzz-XXXXXX").string();
        if (mkdtemp(name.data()) == nullptr || chdir(name.c_str()) != 0)
            std::abort();
        m_path = name;
        setenv("HOME", name.c_str(), 1);
        unsetenv("XDG_DATA_HOME");
    }
    ~Folder() { std::filesystem::remove_all(m_path); }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;

    /// What one line has made is not there for the next.
    void empty() const
    {
        for (const auto& entry : std::filesystem::directory_iterator(m_path)) {
            if (entry.path().filename() != ".cache") // of the fonts
                std::filesystem::remove_all(entry.path());
        }
    }

private:
    std::filesystem::path m_path;
};

/// Catches what goes to one of the process's streams.
class Caught {
public:
    explicit Caught(int stream)
        : m_stream(stream)
        , m_own(dup(stream))
        , m_memory(memfd_create("caught", MFD_CLOEXEC))
    {
        dup2(m_memory, m_stream);
    }
    ~Caught()
    {
        dup2(m_own, m_stream);
        close(m_own);
        close(m_memory);
    }
    Caught(const Caught&) = delete;
    Caught& operator=(const Caught&) = delete;

    std::string text() const
    {
        std::array<char, 65536> text {};
        const ssize_t size = pread(m_memory, text.data(), text.size(), 0);
        return { text.data(), size > 0 ? static_cast<std::size_t>(size) : 0 };
    }

private:
    int m_stream;
    int m_own;
    int m_memory;
};

std::vector<std::string> linesOf(std::string_view text)
{
    std::vector<std::string> lines;
    while (!text.empty()) {
        const auto end = std::min(text.find('\n'), text.size());
        lines.emplace_back(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return lines;
}

/// The status that the process would have ended with.
int statusOf(std::vector<std::string>& words)
{
    CLI::App app("", "panotra");
    auto status = ExitStatus::AllWell;
    addPrefsCommand(app, status);
    addPictureCommand(app, status, [](const PictureOptions& options) { return drawPicture(options, loadedLibrary()); });
    std::vector<char*> arguments;
    for (std::string& word : words)
        arguments.push_back(word.data());
    const int result = runCommandLine(app, status, static_cast<int>(arguments.size()), arguments.data());
    std::cout.flush();
    std::cerr.flush();
    std::fflush(stdout);
    return result;
}

/// Nothing but text reaches a terminal.
bool isPlain(std::string_view line)
{
    return std::ranges::none_of(line, [](char character) {
        const auto byte = static_cast<unsigned char>(character);
        return byte < 0x20 || byte == 0x7f;
    });
}

const char* whatIsWrong(int status, const std::vector<std::string>& complaints, const std::string& action)
{
    if (status != 0 && status != 1 && status != 2 && status != 3)
        return "a status that is not documented";
    if (status == 1 && action != "prefs")
        return "a status that this command does not have";
    if (status == 2 && complaints.size() != 1)
        return "a wrong command line that is not told in one line";
    if (status == 3 && complaints.empty())
        return "a failure without a word";
    if (!std::ranges::all_of(complaints, isPlain))
        return "control characters in a complaint";
    return nullptr;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const Folder folder;
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    std::vector<std::string> words = linesOf(text);
    words.insert(words.begin(), "panotra");
    constexpr std::size_t mostWords = 40;
    const bool isHarmless = words.size() <= mostWords && text.find('/') == text.npos && text.find('\0') == text.npos;
    if (!isHarmless)
        return -1;

    int status = 0;
    std::vector<std::string> complaints;
    {
        const Caught output(STDOUT_FILENO);
        const Caught errors(STDERR_FILENO);
        status = statusOf(words);
        complaints = linesOf(errors.text());
    }
    folder.empty();
    if (const char* const wrong = whatIsWrong(status, complaints, words.size() > 1 ? words[1] : "")) {
        std::fprintf(stderr, "status %d, %s\n", status, wrong);
        for (const std::string& line : complaints)
            std::fprintf(stderr, "  %s\n", line.c_str());
        std::abort();
    }
    return 0;
}
