/// The command line of `panotra window`.
#include "simulator/commands/Commands.h"

#include "simulator/Bundle.h"
#include "simulator/commands/NamedOptions.h"
#include "simulator/window/OpenWindow.h"

#include <memory>
#include <utility>

namespace panotra::sim {

void addWindowCommand(CLI::App& app, ExitStatus& status, Work<WindowOptions> open)
{
    const auto options = std::make_shared<WindowOptions>();
    CLI::App* const command = app.add_subcommand("window", "Open a phone to play with");
    command
        ->add_option("--prefs", options->preferencesFolder,
            "The folder of the property lists (default $XDG_DATA_HOME/panotra/preferences or "
            "~/.local/share/panotra/preferences)")
        ->type_name("DIR");
    command
        ->add_option("--screen,--device", options->screen,
            "The phone: 5s, 6, 6-plus, x, or its screen in points and pixels a point")
        ->type_name("NAME|WxH@S")
        ->capture_default_str();
    command
        ->add_option("--system,--ios", options->system,
            "The system whose home screen the phone has, 9 to 16; without it, all of what 10 to 12 have")
        ->transform(named(systemNames()))
        ->type_name("SYSTEM");
    command
        ->add_option("--scale", options->scale,
            "How much larger than usual everything is, 0.5 to 4 (default: what the system says)")
        ->check(CLI::Range(0.5, 4.0))
        ->type_name("N");
    command->add_option("--wallpaper", options->wallpaper, "dusk, dawn or a PNG file")
        ->type_name("FILE.png")
        ->capture_default_str();
    CLI::Option* const playFile
        = command
              ->add_option("--play", options->playFile,
                  "Play a scenario in the window, its comments as captions; - is standard input")
              ->type_name("FILE");
    // A scenario says itself which phone it is for.
    playFile->excludes("--screen")->excludes("--ios");
    command->add_flag("--watch", options->isPlayedWhenSaved, "Play it anew whenever the file is saved")
        ->needs(playFile);
    command->add_option("--record", options->recordFile, "Save what is done as a scenario that does it again")
        ->type_name("FILE");
    command->add_option("--trace", options->traceFile, "Write the trace to OUT, a line of JSON an event")
        ->type_name("OUT");
    command->add_flag("--force", options->mayOverwrite, "Overwrite what --record and --trace name");
    command->add_option("--shots", options->shotsFolder, "Where the pictures and recordings of F12 and F9 go")
        ->type_name("DIR")
        ->capture_default_str();
    command->add_flag("--sound", options->isHeard,
        "Let buttons click, and steps of the volume sound as loud as the level that they leave");
    command->add_flag(
        "--statistics", options->wantsStatistics, "At the end, tell of turns of the loop and frame times");
    command->footer(
        "Press ? in the window for its keys, F10 for its menu; O starts the phone anew as one of the next system, "
        "unless it is recorded or traced.\nWhat `panotra prefs set` changes meanwhile is obeyed at once.\n"
        "A mixer that is shown takes another style, skin or size at once, dismissed and presented anew; on a phone it "
        "is at the next showing.\n"
        "A scenario keeps its settings in memory unless --prefs names a folder, and its `shot` leaves no picture. It "
        "plays until\nit is over or somebody touches the phone, who has it from then on. What it does is recorded and "
        "traced like everything else.\n"
        "Exit status: 0 all went well, 1 an expectation of the scenario failed, 2 the command line or the scenario is "
        "wrong,\n3 there is no display or no font, or a file could not be read or written.");
    command->callback([options, &status, open = std::move(open)] {
        options->resourceFolder = bundleBesideProgram();
        status = open(*options);
    });
}

} // namespace panotra::sim
