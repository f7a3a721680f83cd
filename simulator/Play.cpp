/// Read, check, play, write: and the first of them that fails decides how it ends.
#include "simulator/Play.h"

#include "simulator/FileClashes.h"
#include "simulator/Files.h"
#include "simulator/device/Device.h"
#include "simulator/scenario/Grammar.h"
#include "simulator/scenario/Player.h"
#include "simulator/text/Printable.h"

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <optional>
#include <span>
#include <utility>
#include <variant>
#include <vector>

namespace panotra::sim {

namespace {

/// A complaint about a line of the scenario.
void complainAbout(const PlayOptions& options, std::size_t line, const std::string& message)
{
    std::fprintf(stderr, "%s:%zu: %s\n", printable(options.scenarioFile).c_str(), line, message.c_str());
}

/// The files of the command line, standard input and output among them where they stand for one.
std::vector<NamedFile> filesOf(const PlayOptions& options, const Library& library)
{
    using enum NamedFile::Use;
    std::vector<NamedFile> files {
        { "the scenario", options.scenarioFile == "-" ? "/dev/stdin" : options.scenarioFile, Read },
        options.traceFile ? NamedFile { "the trace", *options.traceFile, Written }
                          : NamedFile { "standard output", "/dev/stdout", Written },
    };
    if (options.preferencesFolder)
        files.push_back({ "--prefs", *options.preferencesFolder, Preferences });
    if (library.file)
        files.push_back({ "the library", library.file(), Read });
    return files;
}

/// Why the picture is not to be written, or nothing.
std::optional<std::string> objectionToPicture(
    const PlayOptions& options, const std::string& name, std::span<const NamedFile> files)
{
    const auto file = name + ".png";
    const auto found = "found " + inQuotes(name) + ", expected ";
    if (!staysBelow(options.picturesFolder, file))
        return found + "a picture in the folder " + printable(options.picturesFolder) + " or below it";
    const NamedFile picture { {}, std::filesystem::path(options.picturesFolder) / file, NamedFile::Use::Written };
    if (const auto* const other = clashWith(picture, files))
        return found + "another file than " + other->words;
    return std::nullopt;
}

/// Adds the mistakes that show only where files lie; all are in the order of lines afterwards.
void addMistakesOfPictures(Scenario& scenario, const PlayOptions& options, std::span<const NamedFile> files)
{
    for (const PictureAsked& picture : picturesOf(scenario)) {
        if (auto objection = objectionToPicture(options, picture.name, files))
            scenario.mistakes.push_back({ picture.line, std::move(*objection) });
    }
    std::ranges::stable_sort(scenario.mistakes, {}, &Mistake::line);
}

bool isStandardOutput(const PlayOptions& options)
{
    return !options.traceFile;
}

ExitStatus playOnDevice(const PlayOptions& options, const Library& library, const Scenario& scenario,
    OutputFile& output, Pictures* pictures)
{
    const auto writer = makeTraceWriter(
        options.format, [&output](std::string_view text) { output.write(text); }, options.look);
    Device device(options.preferencesFolder);
    device.resourceFolder = options.resourceFolder;
    writer->watch(device);
    const Audience audience {
        .commandBegins = [&writer](const Command& command) { writer->command(command); },
        .expectationFailed
        = [&options](std::size_t line, const std::string& message) { complainAbout(options, line, message); },
        .fileFailed = complain,
    };
    Player player(device, library, audience, pictures);
    player.play(scenario);
    writer->finish();
    output.close();
    if (output.error() && !(isStandardOutput(options) && isReaderGone()))
        complain(output.error()->message);
    if (output.error() || !player.filesWorked())
        return ExitStatus::FileFailed;
    return player.expectationsHeld() ? ExitStatus::AllWell : ExitStatus::NotFulfilled;
}

} // namespace

void complain(const std::string& message)
{
    std::fprintf(stderr, "panotra: %s\n", message.c_str());
}

bool mayTakePictures(const std::string& scenarioFile)
{
    std::error_code error;
    if (scenarioFile == "-" || !std::filesystem::is_regular_file(scenarioFile, error))
        return true;
    const auto text = readFile(scenarioFile);
    const auto* const words = std::get_if<std::string>(&text);
    return words == nullptr || words->find("shot") != words->npos;
}

ExitStatus play(const PlayOptions& options, const Library& library, Pictures* pictures)
{
    const auto text = readFile(options.scenarioFile);
    if (const auto* error = std::get_if<FileError>(&text)) {
        complain(error->message);
        return ExitStatus::FileFailed;
    }
    auto scenario = parseScenario(std::get<std::string>(text));
    const auto files = filesOf(options, library);
    addMistakesOfPictures(scenario, options, files);
    for (const auto& mistake : scenario.mistakes)
        complainAbout(options, mistake.line, mistake.message);
    if (!scenario.mistakes.empty())
        return ExitStatus::WrongInput;
    if (const auto clash = clashAmong(files)) {
        complain(*clash);
        return ExitStatus::WrongInput;
    }
    if (std::error_code error;
        options.preferencesFolder && !std::filesystem::create_directories(*options.preferencesFolder, error) && error) {
        complain(printable(*options.preferencesFolder) + ": " + error.message());
        return ExitStatus::FileFailed;
    }
    auto output = options.traceFile ? OutputFile::named(*options.traceFile) : OutputFile::standardOutput();
    if (output.error()) {
        complain(output.error()->message);
        return ExitStatus::FileFailed;
    }
    return playOnDevice(options, library, scenario, output, pictures);
}

} // namespace panotra::sim
