/// The command line of `panotra play`.
#include "simulator/commands/Commands.h"

#include "simulator/Bundle.h"
#include "simulator/Reference.h"
#include "simulator/Terminal.h"
#include "simulator/systems/Systems.h"

#include <iostream>
#include <memory>
#include <string>
#include <utility>

namespace panotra::sim {

namespace {

/// An option that prints something and leaves the rest of the command line alone.
void addAnswer(CLI::App& command, const char* name, std::string (*text)(), const char* description)
{
    const auto print = [text] {
        std::cout << text();
        throw CLI::Success();
    };
    command.add_flag_callback(name, print, description);
}

struct PlayArguments {
    PlayOptions options;
    std::string format = "text";
    bool isVerbose = false;
    std::string only;
};

/// What the options of text ask for. Answers what is wrong with them, or nothing.
std::string readTextOptions(PlayArguments& arguments)
{
    PlayOptions& options = arguments.options;
    options.look = lookOfText(!options.traceFile);
    if (arguments.format == "json") {
        options.format = TraceFormat::JsonLines;
        return arguments.isVerbose || !arguments.only.empty() ? "--verbose and --only are for text: JSON holds all"
                                                              : "";
    }
    options.format = arguments.isVerbose ? TraceFormat::Verbose : TraceFormat::Story;
    if (arguments.only.empty())
        return {};
    const auto mistake = options.look.only.add(arguments.only);
    return mistake.empty() ? mistake : "--only: " + mistake;
}

ExitStatus run(PlayArguments& arguments, const Work<PlayOptions>& play)
{
    PlayOptions& options = arguments.options;
    if (const auto mistake = readTextOptions(arguments); !mistake.empty()) {
        complain(mistake);
        return ExitStatus::WrongInput;
    }
    options.resourceFolder = bundleBesideProgram();
    return play(options);
}

} // namespace

CLI::App* addPlayCommand(CLI::App& app, ExitStatus& status, Work<PlayOptions> play)
{
    const auto arguments = std::make_shared<PlayArguments>();
    PlayOptions& options = arguments->options;
    CLI::App* const command = app.add_subcommand("play", "Play a scenario and print what the host saw");
    command->add_option("FILE", options.scenarioFile, "The scenario; - is standard input")->required()->type_name("");
    command
        ->add_option("--prefs", options.preferencesFolder,
            "Keep each preference domain as the property list DIR/<domain>.plist; without it domains live in memory")
        ->type_name("DIR");
    command->add_option("--format", arguments->format, "The trace as text for people or as json, a line an event")
        ->check(CLI::IsMember({ "text", "json" }))
        ->type_name("FORMAT")
        ->capture_default_str();
    command->add_flag("--verbose", arguments->isVerbose, "As text, every event instead of what happened in words");
    command
        ->add_option("--only", arguments->only,
            "As text, tell of these events only, and of the commands that brought them about")
        ->type_name("EVENT,...");
    command->add_option("--trace", options.traceFile, "Write the trace to OUT instead of standard output")
        ->type_name("OUT");
    command->add_option("--shots", options.picturesFolder, "Where shot puts its pictures")
        ->type_name("DIR")
        ->capture_default_str();
    addAnswer(*command, "--commands", commandReference, "Print the commands of the scenario language");
    addAnswer(*command, "--reference", wholeReference,
        "Print all of it as Markdown: commands, paths into the state, tree, events");
    command->footer("Systems: with `ios N` before any `lack` or `have` the process has the shape of iOS N, one of "
        + std::to_string(systems::oldest) + " to " + std::to_string(systems::newest)
        + ".\n"
          "Without it, it has all of what 10 to 12 have.\n\n"
          "Exit status: 0 all went well, 1 an expectation failed, 2 the scenario or the command line is wrong and\n"
          "nothing was run, 3 a file could not be read or written. A file of preferences that is no property list is\n"
          "put aside under another name; the scenario is played as if it were not there, and the status is 3.");
    command->callback([arguments, &status, play = std::move(play)] { status = run(*arguments, play); });
    return command;
}

} // namespace panotra::sim
