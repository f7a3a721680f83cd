/// Looking before anything is written.
#include "simulator/window/WindowFiles.h"

#include "simulator/FileClashes.h"
#include "simulator/picture/LooksOfPhone.h"
#include "simulator/preferences/DefaultFolder.h"
#include "simulator/text/Printable.h"

#include <filesystem>
#include <utility>
#include <vector>

namespace panotra::sim {

namespace {

/// Something that would be lost: devices and pipes lose nothing.
bool isFileWithContent(const std::string& name)
{
    std::error_code error;
    return std::filesystem::is_regular_file(name, error);
}

} // namespace

std::optional<std::string> preferencesFolderOf(const WindowOptions& options, bool& isMissing)
{
    isMissing = false;
    if (options.playFile && !options.preferencesFolder)
        return std::nullopt;
    const auto folder
        = options.preferencesFolder ? std::filesystem::path(*options.preferencesFolder) : preferences::defaultFolder();
    if (!folder) {
        complain("no home folder to keep preferences in: give one with --prefs");
        isMissing = true;
        return std::nullopt;
    }
    std::error_code error;
    return std::filesystem::absolute(*folder, error).string();
}

std::optional<std::string> mistakeInFiles(const WindowOptions& options, const std::optional<std::string>& preferences)
{
    using enum NamedFile::Use;
    std::vector<NamedFile> files;
    if (preferences)
        files.push_back({ "--prefs", *preferences, Preferences });
    if (options.playFile)
        files.push_back({ "--play", *options.playFile == "-" ? "/dev/stdin" : *options.playFile, Read });
    if (options.recordFile)
        files.push_back({ "--record", *options.recordFile, Written });
    if (options.traceFile)
        files.push_back({ "--trace", *options.traceFile, Written });
    if (isWallpaperFile(options.wallpaper))
        files.push_back({ "--wallpaper", options.wallpaper, Read });
    if (auto clash = clashAmong(files))
        return clash;
    for (const NamedFile& file : files) {
        if (file.use == Written && !options.mayOverwrite && isFileWithContent(file.path.string()))
            return file.words + ": " + printable(file.path.string()) + " is there already (--force overwrites it)";
    }
    return std::nullopt;
}

WindowOutput::WindowOutput(const std::optional<std::string>& name, bool mayOverwrite)
{
    if (!name)
        return;
    // What has come since it was looked for is not overwritten either.
    std::error_code error;
    const bool isThere = std::filesystem::exists(*name, error) && !isFileWithContent(*name);
    m_file.emplace(mayOverwrite || isThere ? OutputFile::named(*name) : OutputFile::fresh(*name));
}

std::function<void(std::string_view)> WindowOutput::sink()
{
    if (!m_file)
        return {};
    return [this](std::string_view text) {
        m_file->write(text);
        m_file->flush(); // a crash leaves what led to it
    };
}

bool WindowOutput::isWell()
{
    if (!m_file || !m_file->error())
        return true;
    complain(m_file->error()->message);
    return false;
}

bool WindowOutput::close()
{
    if (m_file)
        m_file->close();
    return isWell();
}

} // namespace panotra::sim
