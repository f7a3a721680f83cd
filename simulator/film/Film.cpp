/// From options to a file.
#include "simulator/film/Film.h"

#include "simulator/FileClashes.h"
#include "simulator/Files.h"
#include "simulator/film/FilmSet.h"
#include "simulator/picture/LooksOfPhone.h"
#include "simulator/picture/PictureFolder.h"
#include "simulator/text/Printable.h"

#include <cmath>
#include <cstdio>
#include <filesystem>
#include <system_error>
#include <unistd.h>
#include <utility>
#include <vector>

namespace panotra::sim {

using std::chrono::milliseconds;

namespace {

namespace fs = std::filesystem;

ExitStatus complainAbout(ExitStatus status, const std::string& message)
{
    complain(message);
    return status;
}

/// A frame begins at a whole millisecond.
milliseconds rounded(std::chrono::microseconds time)
{
    return std::chrono::round<milliseconds>(time);
}

std::optional<std::string> mistakeIn(const FilmOptions& options)
{
    using enum NamedFile::Use;
    if (makeMovingPicture(options.outputFile, options.look.size) == nullptr)
        return "--output: found " + inQuotes(options.outputFile) + ", expected a name that ends with .webp or .gif";
    std::vector<NamedFile> files {
        { "the scenario", options.scenarioFile == "-" ? "/dev/stdin" : options.scenarioFile, Read },
        { "--output", options.outputFile, Written },
    };
    if (isWallpaperFile(options.wallpaper))
        files.push_back({ "--wallpaper", options.wallpaper, Read });
    if (auto clash = clashAmong(files))
        return clash;
    std::error_code error;
    if (!options.mayOverwrite && fs::exists(fs::symlink_status(options.outputFile, error)))
        return "--output: " + printable(options.outputFile) + " is there already (--force overwrites it)";
    return std::nullopt;
}

/// Why a film of the scenario would be too long, or nothing.
std::optional<std::string> whyTooLong(const DrawnScenario& scenario, const FilmLook& look)
{
    constexpr double longest = 600; // seconds
    const double length = lengthOfFilm(scenario.scenario, look);
    if (length <= longest)
        return std::nullopt;
    const double shown = std::min(std::ceil(length), 1e9);
    return printable(scenario.name) + ": the film would last " + std::to_string(std::llround(shown))
        + " seconds, expected at most " + std::to_string(std::llround(longest)) + " (--speed makes it shorter)";
}

/// A bar for those who watch, on the line in which they are.
void showProgress(std::size_t done, std::size_t all)
{
    constexpr std::size_t width = 40;
    const std::size_t part = done * width / all;
    const std::string bar = std::string(part, '#') + std::string(width - part, '.');
    std::fprintf(stderr, "\r[%s] %3zu %%%s", bar.c_str(), done * 100 / all, done == all ? "\r\x1b[K" : "");
    std::fflush(stderr);
}

bool write(const std::string& name, const std::string& bytes, bool mayOverwrite)
{
    OutputFile file = mayOverwrite ? OutputFile::named(name) : OutputFile::fresh(name);
    file.write(bytes);
    file.close();
    if (file.error())
        complain(file.error()->message);
    return !file.error();
}

} // namespace

void takeSamples(FilmSet& set, MovingPicture& film)
{
    // One picture in a while shows what colours there are.
    constexpr std::size_t between = 10;
    for (std::size_t frame = 0; frame < set.frameCount(); frame += between) {
        set.goTo(frame);
        film.sample(set.take().pixels);
    }
}

std::string shoot(FilmSet& set, MovingPicture& film, std::string& failure,
    const std::function<void(std::size_t done, std::size_t all)>& tell)
{
    for (std::size_t frame = 0; frame < set.frameCount(); ++frame) {
        set.goTo(frame);
        const WindowPicture::Frame taken = set.take();
        if (!taken.changed.empty()) {
            if (const auto problem = film.add(taken.pixels, taken.changed, rounded(set.beginOf(frame)))) {
                failure = *problem;
                return {};
            }
        }
        if (tell)
            tell(frame + 1, set.frameCount());
    }
    return film.finish(rounded(set.beginOf(set.frameCount())), failure);
}

ExitStatus makeFilm(const FilmOptions& options, const Library& library)
{
    if (const auto mistake = mistakeIn(options))
        return complainAbout(ExitStatus::WrongInput, *mistake);
    auto read = readDrawnScenario(options.scenarioFile);
    if (const auto* const trouble = std::get_if<ScenarioTrouble>(&read)) {
        for (const std::string& line : trouble->lines)
            std::fprintf(stderr, "%s\n", line.c_str());
        return trouble->status;
    }
    const DrawnScenario& scenario = *std::get<std::unique_ptr<const DrawnScenario>>(read);
    if (const auto reason = whyTooLong(scenario, options.look))
        return complainAbout(ExitStatus::WrongInput, *reason);
    const fs::path folder = fs::path(options.outputFile).parent_path();
    if (std::error_code error; !folder.empty() && !fs::is_directory(folder, error))
        return complainAbout(ExitStatus::FileFailed,
            printable(folder.string()) + ": "
                + (error ? error : std::make_error_code(std::errc::not_a_directory)).message());
    std::string failure;
    auto wallpaper = findWallpaper(options.wallpaper, failure);
    if (!wallpaper)
        return complainAbout(ExitStatus::FileFailed, printable(options.wallpaper) + ": " + failure);
    const auto renderer = makeRenderer(*wallpaper, complain, failure);
    if (renderer == nullptr)
        return complainAbout(ExitStatus::FileFailed, failure);

    const auto film = makeMovingPicture(options.outputFile, options.look.size);
    if (film->wantsSamples()) {
        FilmSet set(scenario, options.look, library, options.resourceFolder, *renderer);
        takeSamples(set, *film);
    }
    // What a renderer keeps of the views goes with them.
    const auto fresh = makeRenderer(std::move(*wallpaper), complain, failure);
    bool haveExpectationsHeld = true;
    FilmSet set(scenario, options.look, library, options.resourceFolder, *fresh,
        [&](std::size_t line, const std::string& message) {
            haveExpectationsHeld = false;
            std::fprintf(stderr, "%s\n", aboutLine(scenario.name, line, message).c_str());
        });
    const bool isWatched = isatty(STDERR_FILENO) != 0;
    const std::string bytes = shoot(set, *film, failure, isWatched ? showProgress : nullptr);
    if (bytes.empty())
        return complainAbout(ExitStatus::FileFailed, printable(options.outputFile) + ": " + failure);
    if (!write(options.outputFile, bytes, options.mayOverwrite))
        return ExitStatus::FileFailed;
    return haveExpectationsHeld ? ExitStatus::AllWell : ExitStatus::NotFulfilled;
}

} // namespace panotra::sim
