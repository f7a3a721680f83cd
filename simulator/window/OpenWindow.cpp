/// Everything that can be missing is asked for before the window opens.
#include "simulator/window/OpenWindow.h"

#include "facts/PublicNames.h"
#include "simulator/device/Services.h"
#include "simulator/picture/DrawnScenario.h"
#include "simulator/picture/LooksOfPhone.h"
#include "simulator/picture/PictureFolder.h"
#include "simulator/preferences/DomainNames.h"
#include "simulator/text/Printable.h"
#include "simulator/window/Menu.h"
#include "simulator/window/PhoneModels.h"
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

std::string titleOf(const Screen& screen, const std::optional<int>& system)
{
    const std::string name = nameOfPhone({ screen.width, screen.height, screen.scale });
    // Plain letters: whoever has no locale would be shown no title at all.
    return "Panotra - " + name + (system ? ", iOS " + std::to_string(*system) : "");
}

/// Null and the reason in `failure` where a picture or a font is missing.
std::unique_ptr<render::Renderer> makeRendererOf(const std::string& name, std::string& failure)
{
    auto wallpaper = findWallpaper(wallpaperOfMenu(name), failure);
    if (!wallpaper) {
        failure = printable(name) + ": " + failure;
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
            if (std::exchange(m_forgets, false))
                forgetEverything();
            std::string failure;
            renderer = makeRendererOf(m_wallpaper, failure); // what it keeps of the views goes with them
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
        display.setTitle(titleOf(*session.device().screen, session.device().system));
        Desk desk(session, windowMeans(m_options.shotsFolder, session, phone, renderer));
        desk.setWallpaperName(m_wallpaper);
        desk.pace() = m_pace;
        desk.setHeard(m_isHeard);
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
        m_isHeard = desk.isHeard();
        m_wallpaper = desk.wallpaperName();
        if (!wasClosed || !session.filesWorked() || !desk.filesWorked())
            m_status = ExitStatus::FileFailed;
        else if (!session.expectationsHeld() && m_status == ExitStatus::AllWell)
            m_status = ExitStatus::NotFulfilled;
        if (const auto& wish = loop.wantsPhone()) {
            m_setup.screen = wish->screen.value_or(m_setup.screen);
            m_setup.system = wish->system.value_or(m_setup.system);
            m_forgets = wish->forgetsEverything;
        }
        return wasClosed && (loop.wantsPhone() || desk.wantsStart());
    }

    /// The mixer's own settings and levels, and what it shares with its sibling; what other programs keep is theirs.
    void forgetEverything() const
    {
        if (!m_setup.preferencesFolder)
            return;
        for (const char* const domain : { ownDomain, siblingDomain }) {
            const auto file = preferences::fileOfDomain(*m_setup.preferencesFolder, domain);
            std::error_code error;
            if (!std::filesystem::remove(file, error) && error)
                complain(printable(file.string()) + ": " + error.message());
        }
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
    std::string m_wallpaper = menuNameOf(m_options.wallpaper);
    bool m_forgets = false;
    Pace m_pace;
    bool m_isHeard = m_options.isHeard;
    ExitStatus m_status = ExitStatus::AllWell;
};

} // namespace

ExitStatus openWindow(const WindowOptions& options, const Library& library)
{
    if (const auto mistake = mistakeInOptions(options))
        return failed(*mistake, ExitStatus::WrongInput);
    const PhoneModel* const model = findModel(options.screen);
    const auto screen = model != nullptr ? std::optional(model->screen) : parseScreen(options.screen);
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
    auto renderer = makeRendererOf(menuNameOf(options.wallpaper), failure);
    if (renderer == nullptr)
        return failed(failure);
    if (std::error_code error; folder && !std::filesystem::create_directories(*folder, error) && error)
        return failed(printable(options.preferencesFolder.value_or(*folder)) + ": " + error.message());
    const auto display = Display::open({ options.scale, rememberedPlace() }, failure);
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
    rememberPlace(display->place());
    const bool isRecorded = recording.close();
    const bool isTraced = trace.close();
    return isRecorded && isTraced ? status : ExitStatus::FileFailed;
}

} // namespace panotra::sim
