/// Files as the command line meets them: whole texts in, a trace out, and what went wrong in one line.
#pragma once

#include <cstdio>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

namespace panotra::sim {

/// "NAME: reason".
struct FileError {
    std::string message;
};

/// The whole of a file; "-" is standard input.
std::variant<std::string, FileError> readFile(const std::string& name);

/// A file being written, or standard output. Remembers the first error; what comes after it is dropped.
class OutputFile {
public:
    static OutputFile standardOutput();
    /// Empties the file, or makes it.
    static OutputFile named(const std::string& name);
    /// Makes the file; one that is there already is an error, and stays as it is.
    static OutputFile fresh(const std::string& name);

    void write(std::string_view text);
    /// Passes on what was written: whoever reads the file sees it.
    void flush();
    /// Everything that was written is with the system afterwards, or error() says why not.
    void close();
    const std::optional<FileError>& error() const { return m_error; }

private:
    OutputFile(std::FILE* stream, std::string name);
    void noteError(int reason);

    std::unique_ptr<std::FILE, int (*)(std::FILE*)> m_stream;
    std::string m_name;
    std::optional<FileError> m_error;
};

/// Makes a file that is not there yet, empty: `folder`/`stem`-1`ending`, or with the next number that is free. Answers
/// its name; none and the reason in `failure`, as "NAME: reason", if it cannot be made.
std::optional<std::string> makeFreshFile(
    const std::string& folder, const std::string& stem, const std::string& ending, std::string& failure);

/// Why a file cannot be written where its folder is missing: "NAME: there is no folder FOLDER". Folders are not made
/// for a file: a name that was misspelt would be hard to find. Nothing if the folder is there.
std::optional<std::string> missingFolderOf(const std::string& name);

/// Whether standard output is a pipe that nobody reads any more, as `head` leaves it. What cannot be written then is
/// missed by nobody: it ends as any failure of writing does, but without a word.
bool isReaderGone();

/// Gives standard input, output and error something to be if the caller left them closed: otherwise a file that is
/// opened later would take their place, and the trace would end up in it.
void keepStandardStreams();

} // namespace panotra::sim
