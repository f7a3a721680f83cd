/// Everything that can be missing is asked for before the window opens.
#include "simulator/window/OpenWindow.h"

#include "simulator/FileClashes.h"
#include "simulator/Files.h"
#include "simulator/picture/LooksOfPhone.h"
#include "simulator/picture/PictureFolder.h"
#include "simulator/preferences/DefaultFolder.h"
#include "simulator/text/Printable.h"
#include "simulator/window/Person.h"
#include "simulator/window/PreferenceWatch.h"
#include "simulator/window/WindowLoop.h"

#include <filesystem>
#include <memory>
#include <utility>
#include <vector>

namespace panotra::sim {

namespace {

ExitStatus failed(const std::string& message, ExitStatus status = ExitStatus::FileFailed)
{
    complain(message);
    return status;
}

/// An absolute path, so that it stays the same folder whatever happens; none after a complaint.
std::optional<std::string> preferencesFolder(const std::optional<std::string>& asked)
{
    const auto folder = asked ? std::filesystem::path(*asked) : preferences::defaultFolder();
    if (!folder) {
        complain("no home folder to keep preferences in: give one with --prefs");
        return std::nullopt;
    }
    std::error_code error;
    return std::filesystem::absolute(*folder, error).string();
}

/// What is wrong with the files that were named, or nothing.
std::optional<std::string> clashOf(const WindowOptions& options, const std::string& preferencesFolder)
{
    using enum NamedFile::Use;
    std::vector<NamedFile> files { { "--prefs", preferencesFolder, Preferences } };
    if (options.recordFile)
        files.push_back({ "--record", *options.recordFile, Written });
    if (options.traceFile)
        files.push_back({ "--trace", *options.traceFile, Written });
    if (isWallpaperFile(options.wallpaper))
        files.push_back({ "--wallpaper", options.wallpaper, Read });
    return clashAmong(files);
}

/// A file that is written as the session goes on, if one was asked for.
class OptionalOutput {
public:
    explicit OptionalOutput(const std::optional<std::string>& name)
    {
        if (name)
            m_file.emplace(OutputFile::named(*name));
    }

    std::function<void(std::string_view)> sink()
    {
        if (!m_file)
            return {};
        return [this](std::string_view text) {
            m_file->write(text);
            m_file->flush(); // a crash leaves what led to it
        };
    }
    /// Answers whether all of it is written, after a complaint if not.
    bool isWell()
    {
        if (!m_file || !m_file->error())
            return true;
        complain(m_file->error()->message);
        return false;
    }
    bool close()
    {
        if (m_file)
            m_file->close();
        return isWell();
    }

private:
    std::optional<OutputFile> m_file;
};

/// Null and the reason in `failure` where a picture or a font is missing.
std::unique_ptr<render::Renderer> makeRendererOf(const WindowOptions& options, std::string& failure)
{
    auto wallpaper = findWallpaper(options.wallpaper, failure);
    if (!wallpaper) {
        failure = printable(options.wallpaper) + ": " + failure;
        return nullptr;
    }
    return makeRenderer(std::move(*wallpaper), complain, failure);
}

} // namespace

ExitStatus openWindow(const WindowOptions& options, const Library& library)
{
    const auto screen = parseScreen(options.screen);
    if (!screen)
        return failed("--screen: " + whyNoScreen(options.screen), ExitStatus::WrongInput);
    if (const auto reason = render::whyTooLargeOrSmall({ screen->width, screen->height }, screen->scale))
        return failed("--screen: " + *reason, ExitStatus::WrongInput);
    const auto folder = preferencesFolder(options.preferencesFolder);
    if (!folder)
        return ExitStatus::FileFailed;
    if (const auto clash = clashOf(options, *folder))
        return failed(*clash, ExitStatus::WrongInput);
    std::string failure;
    auto renderer = makeRendererOf(options, failure);
    if (renderer == nullptr)
        return failed(failure);
    if (std::error_code error; !std::filesystem::create_directories(*folder, error) && error)
        return failed(printable(options.preferencesFolder.value_or(*folder)) + ": " + error.message());
    const auto display = Display::open("Panotra", failure);
    if (display == nullptr)
        return failed("no display to open a window on: " + failure);
    const auto push = [event = WindowLoop::preferencesEvent()] {
        SDL_Event pushed {};
        pushed.type = event;
        SDL_PushEvent(&pushed);
    };
    const auto gone = [&folder] {
        complain(printable(*folder) + ": the folder is gone; what others change is not noticed any more");
    };
    const auto watch = PreferenceWatch::make(*folder, push, gone, failure);
    if (watch == nullptr)
        return failed(printable(*folder) + ": " + failure);
    // Opening them empties them, so they come last, and of the two the recording, which is somebody's work.
    OptionalOutput trace(options.traceFile);
    if (!trace.isWell())
        return ExitStatus::FileFailed;
    OptionalOutput recording(options.recordFile);
    if (!recording.isWell())
        return ExitStatus::FileFailed;

    SessionSetup setup;
    setup.preferencesFolder = *folder;
    setup.resourceFolder = options.resourceFolder;
    setup.screen = *screen;
    setup.system = options.system;
    setup.record = recording.sink();
    setup.trace = trace.sink();
    setup.fileFailed = complain;
    bool allWentWell = true;
    for (bool isOpen = true; isOpen;) {
        Session session(setup, library);
        Phone phone(session.device());
        WindowLoop loop(
            *display, session, phone, *renderer, options.wantsStatistics ? Statistics::Kept : Statistics::None);
        std::string trouble;
        const bool wasClosed = loop.run(trouble);
        if (!wasClosed)
            complain("the display takes no more pictures: " + trouble);
        if (options.wantsStatistics)
            std::fprintf(stderr, "panotra: %s\n", loop.statistics().c_str());
        allWentWell = allWentWell && wasClosed && session.filesWorked();
        isOpen = wasClosed && loop.wantsOtherSystem();
        if (!isOpen)
            break;
        setup.system = nextSystem(setup.system);
        renderer = makeRendererOf(options, failure); // what it keeps of the views goes with them
        if (renderer == nullptr)
            return failed(failure);
    }
    const bool isRecorded = recording.close();
    const bool isTraced = trace.close();
    return allWentWell && isRecorded && isTraced ? ExitStatus::AllWell : ExitStatus::FileFailed;
}

} // namespace panotra::sim
