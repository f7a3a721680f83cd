/// The command line of `panotra`.
#include "simulator/Files.h"
#include "simulator/Library.h"
#include "simulator/Play.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <csignal>
#include <string>

namespace {

using namespace panotra::sim;

/// One line whatever CLI11 has to say.
ExitStatus complainAboutCommandLine(std::string message)
{
    std::ranges::replace(message, '\n', ' ');
    complain(message + " (panotra --help tells more)");
    return ExitStatus::WrongInput;
}

ExitStatus run(int argumentCount, char** arguments)
{
    CLI::App app("A volume mixer for the home screen, on a simulated device.", "panotra");
    app.set_version_flag("--version", "panotra " PANOTRA_VERSION);

    PlayOptions options;
    std::string format = "text";
    auto* const playCommand = app.add_subcommand("play", "Play a scenario and print what the host saw");
    playCommand->add_option("FILE", options.scenarioFile, "The scenario; - is standard input")
        ->required()
        ->type_name("");
    playCommand
        ->add_option("--prefs", options.preferencesFolder,
            "Keep each preference domain as the property list DIR/<domain>.plist; without it domains live in memory")
        ->type_name("DIR");
    playCommand->add_option("--format", format, "The trace as text for people or as json, a line an event")
        ->check(CLI::IsMember({ "text", "json" }))
        ->type_name("FORMAT")
        ->capture_default_str();
    playCommand->add_option("--trace", options.traceFile, "Write the trace to OUT instead of standard output")
        ->type_name("OUT");
    playCommand->add_option("--shots", options.picturesFolder, "Where shot puts its pictures")
        ->type_name("DIR")
        ->capture_default_str();
    playCommand->footer("Exit status: 0 all went well, 1 an expectation failed, 2 the scenario or the command line is "
                        "wrong and\nnothing was run, 3 a file could not be read or written.");

    try {
        app.parse(argumentCount, arguments);
    } catch (const CLI::Success& request) {
        app.exit(request);
        return ExitStatus::AllWell;
    } catch (const CLI::ParseError& error) {
        return complainAboutCommandLine(error.what());
    }
    if (!*playCommand)
        return complainAboutCommandLine("a command is required");
    options.format = format == "json" ? TraceFormat::JsonLines : TraceFormat::Text;
    return play(options, loadedLibrary());
}

} // namespace

int main(int argumentCount, char** arguments)
{
    keepStandardStreams();
    // A reader that goes away is an error of writing like any other, not the end of the program.
    std::signal(SIGPIPE, SIG_IGN);
    return static_cast<int>(run(argumentCount, arguments));
}
