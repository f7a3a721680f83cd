/// The command line of `panotra desktop`.
#include "simulator/commands/Commands.h"

#include "simulator/desktop/OpenDesktop.h"

#include <memory>
#include <utility>

namespace panotra::sim {

void addDesktopCommand(CLI::App& app, ExitStatus& status, Work<DesktopOptions> open)
{
    const auto options = std::make_shared<DesktopOptions>();
    CLI::App* const command = app.add_subcommand("desktop", "Be the mixer of this computer's own sound");
    command
        ->add_option("--prefs", options->preferencesFolder,
            "The folder of the property lists (default $XDG_DATA_HOME/panotra/preferences or "
            "~/.local/share/panotra/preferences)")
        ->type_name("DIR");
    constexpr double percent = 100;
    command->add_option("--limit", options->limit, "Never put a level back that is louder than that, 0 to 100")
        ->check(CLI::Range(0.0, percent))
        ->type_name("PERCENT");
    CLI::Option* const headless
        = command->add_flag("--headless", options->isHeadless, "Remember and put back, and show nothing");
    command
        ->add_flag(
            "--phone", options->isPhone, "Show the phone of `panotra window`, whose sound is then this computer's")
        ->excludes(headless);
    command->add_flag("--status", options->wantsStatus, "Print what the one that runs knows, and nothing else");
    command->footer(
        "The mixer is above other windows while it is shown, and takes no keyboard; on X11 it is blurred from what is "
        "behind it,\nand a press beside it, which the other window gets, sends it away. Without a display nothing is "
        "shown.\n"
        "With --phone the volume buttons and sliders of the phone set this computer's volume; where it is heard and "
        "what plays is\nshown and not chosen there.\n"
        "It runs until it is told to end (Ctrl-C), or its phone is closed. There is one a session: a second one brings "
        "up the mixer\nof the first, or sends it away. What `panotra prefs set` changes meanwhile is obeyed at once.\n"
        "Exit status: 0 all went well, 1 with --status: none runs; else: one runs already and shows nothing, 2 the "
        "command\nline is wrong, 3 a file could not be read or written, there is no session, or no display for "
        "--phone.");
    command->callback([options, &status, open = std::move(open)] { status = open(*options); });
}

} // namespace panotra::sim
