/// The C library's streams: they tell the reason of a failure.
#include "simulator/Files.h"

#include "simulator/text/Printable.h"

#include <array>
#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <poll.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace panotra::sim {

namespace {

FileError fileError(const std::string& name, int reason)
{
    return { printable(name) + ": " + std::generic_category().message(reason) };
}

/// Standard streams are not ours to close.
int leaveOpen(std::FILE*)
{
    return 0;
}

} // namespace

std::variant<std::string, FileError> readFile(const std::string& name)
{
    const bool isStandardInput = name == "-";
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> stream(
        isStandardInput ? stdin : std::fopen(name.c_str(), "re"), isStandardInput ? leaveOpen : std::fclose);
    const auto shownName = isStandardInput ? "standard input" : name;
    if (!stream)
        return fileError(shownName, errno);
    std::string text;
    std::array<char, 65536> buffer {};
    while (const auto length = std::fread(buffer.data(), 1, buffer.size(), stream.get()))
        text.append(buffer.data(), length);
    if (std::ferror(stream.get()) != 0)
        return fileError(shownName, errno);
    return text;
}

OutputFile::OutputFile(std::FILE* stream, std::string name)
    : m_stream(stream, stream == stdout ? leaveOpen : std::fclose)
    , m_name(std::move(name))
{
    if (m_stream)
        return;
    const int reason = errno;
    if (auto missing = reason == ENOENT ? missingFolderOf(m_name) : std::nullopt)
        m_error = { std::move(*missing) };
    else
        noteError(reason);
}

OutputFile OutputFile::standardOutput()
{
    return { stdout, "standard output" };
}

OutputFile OutputFile::named(const std::string& name)
{
    return { std::fopen(name.c_str(), "we"), name };
}

OutputFile OutputFile::fresh(const std::string& name)
{
    return { std::fopen(name.c_str(), "wxe"), name };
}

void OutputFile::write(std::string_view text)
{
    if (!m_error && std::fwrite(text.data(), 1, text.size(), m_stream.get()) != text.size())
        noteError(errno);
}

void OutputFile::flush()
{
    if (m_stream && std::fflush(m_stream.get()) != 0)
        noteError(errno);
}

void OutputFile::close()
{
    if (!m_stream)
        return;
    flush();
    // A file system may keep its complaint until the very end.
    auto* const stream = m_stream.release();
    if (m_stream.get_deleter()(stream) != 0)
        noteError(errno);
}

void OutputFile::noteError(int reason)
{
    if (!m_error)
        m_error = fileError(m_name, reason);
}

std::optional<std::string> makeFreshFile(
    const std::string& folder, const std::string& stem, const std::string& ending, std::string& failure)
{
    constexpr int mostFiles = 100000;
    for (int number = 1; number < mostFiles; ++number) {
        const std::string name = (std::filesystem::path(folder) / (stem + "-" + std::to_string(number) + ending))
                                     .lexically_normal()
                                     .string();
        OutputFile file = OutputFile::fresh(name);
        file.close();
        if (!file.error())
            return name;
        // Whatever else is there, what is in the way may be a link that leads nowhere.
        if (std::error_code error; !std::filesystem::exists(std::filesystem::symlink_status(name, error))) {
            failure = file.error()->message;
            return std::nullopt;
        }
    }
    failure = printable(folder) + ": too many files " + stem + "-N" + ending;
    return std::nullopt;
}

std::optional<std::string> missingFolderOf(const std::string& name)
{
    const auto folder = std::filesystem::path(name).parent_path();
    std::error_code error;
    if (folder.empty() || std::filesystem::exists(folder, error) || error)
        return std::nullopt;
    return printable(name) + ": there is no folder " + printable(folder.string());
}

bool isReaderGone()
{
    pollfd output { STDOUT_FILENO, 0, 0 };
    return poll(&output, 1, 0) == 1 && (output.revents & POLLERR) != 0;
}

void keepStandardStreams()
{
    for (const int descriptor : { STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO }) {
        // The lowest free number is the one that is missing. Opened the wrong way round, it fails when it is used.
        if (fcntl(descriptor, F_GETFD) == -1 && errno == EBADF)
            static_cast<void>(open("/dev/null", descriptor == STDIN_FILENO ? O_WRONLY : O_RDONLY));
    }
}

} // namespace panotra::sim
