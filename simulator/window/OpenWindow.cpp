/// Everything that can be missing is asked for before the window opens.
#include "simulator/window/OpenWindow.h"

#include "simulator/picture/DrawnScenario.h"
#include "simulator/picture/LooksOfPhone.h"
#include "simulator/picture/PictureFolder.h"
#include "simulator/text/Printable.h"
#include "simulator/window/PreferenceWatch.h"
#include "simulator/window/WindowFiles.h"
#include "simulator/window/WindowLoop.h"
#include "simulator/window/WindowMeans.h"

#include <cstdio>
#include <filesystem>
#include <memory>
#include <utility>

namespace panotra::sim {

namespace {

using ScenarioPointer = std::unique_ptr<const DrawnScenario>;

ExitStatus failed(const std::string& message, ExitStatus status = ExitStatus::FileFailed)
{
    complain(message);
    return status;
}

void print(const std::string& line)
{
    std::fprintf(stderr, "%s\n", line.c_str());
}

/// What is wrong with options that do not go together, or nothing.
std::optional<std::string> mistakeInOptions(const WindowOptions& options)
{
    if (!options.isPlayedWhenSaved)
        return std::nullopt;
    if (!options.playFile || *options.playFile == "-")
        return "--watch: expected a file with --play, which can be saved";
    if (options.recordFile || options.traceFile)
        return "--watch: a phone that is recorded or traced is not started anew";
    return std::nullopt;
}

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

std::unique_ptr<FolderWatch> watchPreferences(const std::string& folder, std::string& failure)
{
    const auto gone = [&folder] {
        complain(printable(folder) + ": the folder is gone; what others change is not noticed any more");
    };
    return PreferenceWatch::make(folder, pusherOf(WindowLoop::preferencesEvent()), gone, failure);
}

/// Editors write into the file, or put another one in its place: either is seen in its folder.
std::unique_ptr<FolderWatch> watchScenario(const std::string& name, std::string& failure)
{
    std::error_code error;
    const auto path = std::filesystem::canonical(name, error);
    const auto gone = [name] {
        complain(printable(name) + ": its folder is gone; it is not played anew any more");
    };
    const auto isScenario = [fileName = path.filename().string()](std::string_view file) {
        return file == fileName;
    };
    return FolderWatch::make(
        path.parent_path().string(), { isScenario, pusherOf(WindowLoop::scenarioEvent()), gone }, failure);
}

/// The phones of a window, one after the other.
class Phones {
public:
    Phones(const WindowOptions& options, const Library& library, SessionSetup setup, ScenarioPointer scenario)
        : m_options(options)
        , m_library(library)
        , m_setup(std::move(setup))
        , m_scenario(std::move(scenario))
    {
        m_setup.expectationFailed = [this](std::size_t line, const std::string& message) {
            print(aboutLine(m_scenario->name, line, message));
        };
    }

    ExitStatus show(Display& display, std::unique_ptr<render::Renderer> renderer)
    {
        while (true) {
            m_setup.scenario = m_scenario != nullptr ? &m_scenario->scenario : nullptr;
            if (!showOne(display, *renderer))
                return m_status;
            std::string failure;
            renderer = makeRendererOf(m_options, failure); // what it keeps of the views goes with them
            if (renderer == nullptr)
                return failed(failure);
            if (m_saved != nullptr)
                m_scenario = std::move(m_saved);
        }
    }

private:
    /// Answers whether there is to be another one.
    bool showOne(Display& display, render::Renderer& renderer)
    {
        Session session(m_setup, m_library);
        Phone phone(session.device());
        session.setWatcher([&phone](const Command& command) { phone.follow(command); });
        Desk desk(session, windowMeans(m_options.shotsFolder, session, phone, renderer));
        desk.pace() = m_pace;
        const auto statistics = m_options.wantsStatistics ? Statistics::Kept : Statistics::None;
        WindowLoop loop(display, session, phone, desk, renderer, statistics);
        loop.onScenarioSaved([&] { takeSaved(session, desk); });
        std::string trouble;
        const bool wasClosed = loop.run(trouble);
        desk.endRecording();
        if (!wasClosed)
            complain("the display takes no more pictures: " + trouble);
        if (m_options.wantsStatistics)
            complain(loop.statistics());
        m_pace = desk.pace();
        if (!wasClosed || !session.filesWorked() || !desk.filesWorked())
            m_status = ExitStatus::FileFailed;
        else if (!session.expectationsHeld() && m_status == ExitStatus::AllWell)
            m_status = ExitStatus::NotFulfilled;
        if (loop.wantsOtherSystem())
            m_setup.system = nextSystem(m_setup.system);
        return wasClosed && (loop.wantsOtherSystem() || desk.wantsStart());
    }

    /// What was saved is played anew, unless it cannot be: then the old play stays.
    void takeSaved(const Session& session, Desk& desk)
    {
        auto read = readDrawnScenario(m_scenario->name);
        if (const auto* const trouble = std::get_if<ScenarioTrouble>(&read)) {
            for (const std::string& line : trouble->lines)
                print(line);
            return desk.say(trouble->lines.front(), true);
        }
        m_saved = std::move(std::get<ScenarioPointer>(read));
        if (session.canStartAnew())
            desk.perform(WindowAct::FromStart);
        else
            desk.say("The file was saved; Home plays it anew once the recording has ended");
    }

    const WindowOptions& m_options;
    const Library& m_library;
    SessionSetup m_setup;
    ScenarioPointer m_scenario; ///< null: a phone as somebody finds it who unpacks it
    ScenarioPointer m_saved; ///< to be played next
    Pace m_pace;
    ExitStatus m_status = ExitStatus::AllWell;
};

} // namespace

ExitStatus openWindow(const WindowOptions& options, const Library& library)
{
    if (const auto mistake = mistakeInOptions(options))
        return failed(*mistake, ExitStatus::WrongInput);
    const auto screen = parseScreen(options.screen);
    if (!screen)
        return failed("--screen: " + whyNoScreen(options.screen), ExitStatus::WrongInput);
    if (const auto reason = render::whyTooLargeOrSmall({ screen->width, screen->height }, screen->scale))
        return failed("--screen: " + *reason, ExitStatus::WrongInput);
    bool isFolderMissing = false;
    const auto folder = preferencesFolderOf(options, isFolderMissing);
    if (isFolderMissing)
        return ExitStatus::FileFailed;
    if (const auto mistake = mistakeInFiles(options, folder))
        return failed(*mistake, ExitStatus::WrongInput);
    ScenarioPointer scenario;
    if (options.playFile) {
        auto read = readDrawnScenario(*options.playFile);
        if (const auto* const trouble = std::get_if<ScenarioTrouble>(&read)) {
            for (const std::string& line : trouble->lines)
                print(line);
            return trouble->status;
        }
        scenario = std::move(std::get<ScenarioPointer>(read));
    }
    std::string failure;
    auto renderer = makeRendererOf(options, failure);
    if (renderer == nullptr)
        return failed(failure);
    if (std::error_code error; folder && !std::filesystem::create_directories(*folder, error) && error)
        return failed(printable(options.preferencesFolder.value_or(*folder)) + ": " + error.message());
    const auto display = Display::open("Panotra", failure);
    if (display == nullptr)
        return failed("no display to open a window on: " + failure);
    const auto preferencesWatch = folder ? watchPreferences(*folder, failure) : nullptr;
    if (folder && preferencesWatch == nullptr)
        return failed(printable(*folder) + ": " + failure);
    const auto scenarioWatch = options.isPlayedWhenSaved ? watchScenario(*options.playFile, failure) : nullptr;
    if (options.isPlayedWhenSaved && scenarioWatch == nullptr)
        return failed(printable(*options.playFile) + ": " + failure);
    // Opening them empties them, so they come last, and of the two the recording, which is somebody's work.
    WindowOutput trace(options.traceFile, options.mayOverwrite);
    if (!trace.isWell())
        return ExitStatus::FileFailed;
    WindowOutput recording(options.recordFile, options.mayOverwrite);
    if (!recording.isWell())
        return ExitStatus::FileFailed;

    SessionSetup setup;
    setup.preferencesFolder = folder;
    setup.resourceFolder = options.resourceFolder;
    setup.screen = *screen;
    setup.system = options.system;
    setup.record = recording.sink();
    setup.trace = trace.sink();
    setup.fileFailed = complain;
    const ExitStatus status
        = Phones(options, library, std::move(setup), std::move(scenario)).show(*display, std::move(renderer));
    const bool isRecorded = recording.close();
    const bool isTraced = trace.close();
    return isRecorded && isTraced ? status : ExitStatus::FileFailed;
}

} // namespace panotra::sim
