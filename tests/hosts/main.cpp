/// The command line of `panotra-objc`: `panotra play`, with the library as a file in a process of Objective-C objects.
#include "simulator/Bundle.h"
#include "simulator/Files.h"
#include "simulator/Play.h"
#include "simulator/picture/PictureFolder.h"
#include "tests/hosts/HostLibrary.h"

#include <CLI/CLI.hpp>

#include <csignal>
#include <string>

namespace {

using namespace panotra;

int run(int argumentCount, char** arguments)
{
    CLI::App app("The mixer's library as a file, in a process of Objective-C objects.", "panotra-objc");
    sim::PlayOptions options;
    std::string format = "text";
    std::string library;
    CLI::App* const play = app.add_subcommand("play", "Play a scenario and print what the host saw");
    play->add_option("FILE", options.scenarioFile, "The scenario; - is standard input")->required();
    play->add_option("--library", library, "The library's file; without it, the one that was built for this machine");
    play->add_option("--prefs", options.preferencesFolder, "Keep each preference domain as DIR/<domain>.plist");
    play->add_option("--format", format, "The trace as text or as json")->check(CLI::IsMember({ "text", "json" }));
    play->add_option("--trace", options.traceFile, "Write the trace there instead of to standard output");
    play->add_option("--shots", options.picturesFolder, "Where shot puts its pictures");
    app.require_subcommand(1);
    CLI11_PARSE(app, argumentCount, arguments);

    options.format = format == "json" ? sim::TraceFormat::JsonLines : sim::TraceFormat::Text;
    options.resourceFolder = sim::bundleBesideProgram();
    if (!library.empty())
        hosts::chooseLibrary(library);
    sim::PictureFolder pictures(options.picturesFolder, sim::complain);
    return static_cast<int>(sim::play(options, hosts::chosenLibrary(), &pictures));
}

} // namespace

int main(int argumentCount, char** arguments)
{
    sim::keepStandardStreams();
    std::signal(SIGPIPE, SIG_IGN);
    return run(argumentCount, arguments);
}
