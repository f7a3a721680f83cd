/// The command line of `panotra`.
#include "simulator/Bundle.h"
#include "simulator/Files.h"
#include "simulator/Library.h"
#include "simulator/Play.h"
#include "simulator/picture/PictureCommand.h"
#include "simulator/picture/PictureFolder.h"

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

/// `panotra play`
struct PlayCommand {
    CLI::App* command;
    PlayOptions options;
    std::string format = "text";

    explicit PlayCommand(CLI::App& app)
        : command(app.add_subcommand("play", "Play a scenario and print what the host saw"))
    {
        command->add_option("FILE", options.scenarioFile, "The scenario; - is standard input")
            ->required()
            ->type_name("");
        command
            ->add_option("--prefs", options.preferencesFolder,
                "Keep each preference domain as the property list DIR/<domain>.plist; without it domains live in "
                "memory")
            ->type_name("DIR");
        command->add_option("--format", format, "The trace as text for people or as json, a line an event")
            ->check(CLI::IsMember({ "text", "json" }))
            ->type_name("FORMAT")
            ->capture_default_str();
        command->add_option("--trace", options.traceFile, "Write the trace to OUT instead of standard output")
            ->type_name("OUT");
        command->add_option("--shots", options.picturesFolder, "Where shot puts its pictures")
            ->type_name("DIR")
            ->capture_default_str();
        command->footer("Exit status: 0 all went well, 1 an expectation failed, 2 the scenario or the command line is "
                        "wrong and\nnothing was run, 3 a file could not be read or written.");
    }

    ExitStatus run()
    {
        options.format = format == "json" ? TraceFormat::JsonLines : TraceFormat::Text;
        options.resourceFolder = bundleBesideProgram();
        PictureFolder pictures(options.picturesFolder, complain);
        return play(options, loadedLibrary(), &pictures);
    }
};

/// `panotra picture`
struct PictureCommand {
    CLI::App* command;
    PictureOptions options;

    explicit PictureCommand(CLI::App& app)
        : command(app.add_subcommand("picture", "Draw the mixer on the screen of a phone"))
    {
        MixerShowing& showing = options.showing;
        command->add_option("--style", showing.style, "The setting activeStyle: 0 the panel, 1 the banner")
            ->type_name("N");
        command->add_option("--skin", showing.skin, "The setting mixerSkin: 0 to 3")->type_name("N");
        command
            ->add_option(
                "--orientation", showing.orientation, "The interface: 1 upright, 2 upside down, 3 and 4 on either side")
            ->type_name("N")
            ->capture_default_str();
        command->add_option("--screen", options.screen, "The screen in points and pixels a point (default 375x667@2)")
            ->type_name("WxH@S");
        command->add_option("--scale", showing.mixerScale, "The setting scale, the size of the mixer (default 0.875)")
            ->type_name("F");
        command->add_option("--level", options.levels, "The level of a slot from 0 to 11; may be repeated")
            ->type_name("SLOT=V")
            ->take_all()
            ->expected(1);
        command->add_option("--focus", showing.focusedSlot, "A slot whose slider is held by a finger")
            ->type_name("SLOT");
        command->add_option("--wallpaper", options.wallpaper, "dusk, dawn or a PNG file")
            ->type_name("FILE.png")
            ->capture_default_str();
        command->add_flag("--as-viewed", options.asViewed,
            "Turn the picture as the viewer holds the phone; without it the screen stands as it is built");
        command->add_option("-o,--output", options.outputFile, "The picture to write")
            ->type_name("FILE.png")
            ->required();
        command->footer("Exit status: 0 all went well, 2 the command line is wrong, 3 a file or a font could not be "
                        "read or written.");
    }

    ExitStatus run()
    {
        options.resourceFolder = bundleBesideProgram();
        return drawPicture(options, loadedLibrary());
    }
};

ExitStatus run(int argumentCount, char** arguments)
{
    CLI::App app("A volume mixer for the home screen, on a simulated device.", "panotra");
    app.set_version_flag("--version", "panotra " PANOTRA_VERSION);
    PlayCommand playCommand(app);
    PictureCommand pictureCommand(app);
    try {
        app.parse(argumentCount, arguments);
    } catch (const CLI::Success& request) {
        app.exit(request);
        return ExitStatus::AllWell;
    } catch (const CLI::ParseError& error) {
        return complainAboutCommandLine(error.what());
    }
    if (*playCommand.command)
        return playCommand.run();
    if (*pictureCommand.command)
        return pictureCommand.run();
    return complainAboutCommandLine("a command is required");
}

} // namespace

int main(int argumentCount, char** arguments)
{
    keepStandardStreams();
    // A reader that goes away is an error of writing like any other, not the end of the program.
    std::signal(SIGPIPE, SIG_IGN);
    return static_cast<int>(run(argumentCount, arguments));
}
