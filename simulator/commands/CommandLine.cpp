/// From the arguments of a process to its status.
#include "simulator/commands/Commands.h"

#include "simulator/Files.h"

#include <algorithm>
#include <csignal>
#include <string>

namespace panotra::sim {

namespace {

/// One line whatever CLI11 has to say.
ExitStatus complainAboutCommandLine(const CLI::App& app, std::string message)
{
    std::ranges::replace(message, '\n', ' ');
    complain(message + " (" + app.get_name() + " --help tells more)");
    return ExitStatus::WrongInput;
}

ExitStatus run(CLI::App& app, const ExitStatus& status, int argumentCount, char** arguments)
{
    app.require_subcommand(0, 1);
    try {
        app.parse(argumentCount, arguments);
    } catch (const CLI::Success& request) {
        app.exit(request);
        return ExitStatus::AllWell;
    } catch (const CLI::ParseError& error) {
        return complainAboutCommandLine(app, error.what());
    }
    return app.get_subcommands().empty() ? complainAboutCommandLine(app, "a command is required") : status;
}

} // namespace

int runCommandLine(CLI::App& app, const ExitStatus& status, int argumentCount, char** arguments)
{
    keepStandardStreams();
    // A reader that goes away, and a file that may not grow, are errors of writing like any other, not the end of the
    // program.
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);
    return static_cast<int>(run(app, status, argumentCount, arguments));
}

} // namespace panotra::sim
