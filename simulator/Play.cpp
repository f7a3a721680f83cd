/// Read, check, play, write: and the first of them that fails decides how it ends.
#include "simulator/Play.h"

#include "simulator/Files.h"
#include "simulator/device/Device.h"
#include "simulator/scenario/Grammar.h"
#include "simulator/scenario/Player.h"
#include "simulator/text/Printable.h"

#include <cstdio>
#include <filesystem>
#include <variant>

namespace panotra::sim {

namespace {

/// A complaint about a line of the scenario.
void complainAbout(const PlayOptions& options, std::size_t line, const std::string& message)
{
    std::fprintf(stderr, "%s:%zu: %s\n", printable(options.scenarioFile).c_str(), line, message.c_str());
}

/// Whether the trace would replace the scenario that it is a trace of.
bool wouldOverwriteScenario(const PlayOptions& options)
{
    std::error_code error;
    return options.traceFile && std::filesystem::is_regular_file(*options.traceFile, error)
        && std::filesystem::equivalent(*options.traceFile, options.scenarioFile, error);
}

ExitStatus playOnDevice(const PlayOptions& options, const Library& library, const Scenario& scenario,
    OutputFile& output, Pictures* pictures)
{
    const auto writer = makeTraceWriter(options.format, [&output](std::string_view text) { output.write(text); });
    Device device(options.preferencesFolder);
    device.resourceFolder = options.resourceFolder;
    device.traceSink = [&writer](const Json& event) {
        writer->event(event);
    };
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
    if (output.error())
        complain(output.error()->message);
    if (output.error() || !player.filesWorked())
        return ExitStatus::FileFailed;
    return player.expectationsHeld() ? ExitStatus::AllWell : ExitStatus::ExpectationFailed;
}

} // namespace

void complain(const std::string& message)
{
    std::fprintf(stderr, "panotra: %s\n", message.c_str());
}

ExitStatus play(const PlayOptions& options, const Library& library, Pictures* pictures)
{
    const auto text = readFile(options.scenarioFile);
    if (const auto* error = std::get_if<FileError>(&text)) {
        complain(error->message);
        return ExitStatus::FileFailed;
    }
    const auto scenario = parseScenario(std::get<std::string>(text));
    for (const auto& mistake : scenario.mistakes)
        complainAbout(options, mistake.line, mistake.message);
    if (!scenario.mistakes.empty())
        return ExitStatus::WrongInput;
    if (wouldOverwriteScenario(options)) {
        complain("the trace would overwrite the scenario " + printable(options.scenarioFile));
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
