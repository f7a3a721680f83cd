/// The program `panotra`.
#include "simulator/Files.h"
#include "simulator/commands/Commands.h"

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
    app.require_subcommand(0, 1);
    auto status = ExitStatus::AllWell;
    addPlayCommand(app, status);
    addPictureCommand(app, status);
    addPrefsCommand(app, status);
    addWindowCommand(app, status);
    try {
        app.parse(argumentCount, arguments);
    } catch (const CLI::Success& request) {
        app.exit(request);
        return ExitStatus::AllWell;
    } catch (const CLI::ParseError& error) {
        return complainAboutCommandLine(error.what());
    }
    return app.get_subcommands().empty() ? complainAboutCommandLine("a command is required") : status;
}

} // namespace

int main(int argumentCount, char** arguments)
{
    keepStandardStreams();
    // A reader that goes away, and a file that may not grow, are errors of writing like any other, not the end of the
    // program.
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);
    return static_cast<int>(run(argumentCount, arguments));
}
