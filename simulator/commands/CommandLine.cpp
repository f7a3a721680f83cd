/// From the arguments of a process to its status.
#include "simulator/commands/Commands.h"

#include "simulator/Files.h"
#include "simulator/scenario/NearestName.h"
#include "simulator/text/Printable.h"

#include <algorithm>
#include <csignal>
#include <iostream>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace panotra::sim {

namespace {

/// The nearest of the names to a word that is none of them, or where else to look.
std::string helpFor(const CLI::App& app, std::string_view word, const std::vector<std::string>& names)
{
    const auto nearest = didYouMean(word, std::vector<std::string_view>(names.begin(), names.end()));
    return nearest.empty() ? " (" + app.get_name() + " --help tells more)" : nearest;
}

std::vector<std::string> optionsOf(const CLI::App& command)
{
    std::vector<std::string> names;
    for (const auto* const option : command.get_options()) {
        for (const auto& name : option->get_lnames())
            names.push_back("--" + name);
    }
    return names;
}

std::vector<std::string> commandsOf(const CLI::App& app)
{
    std::vector<std::string> names;
    for (const auto* const command : app.get_subcommands([](const CLI::App*) { return true; }))
        names.push_back(command->get_name());
    return names;
}

/// What is wrong with the first word that neither `app` nor its command understood, or nothing if there is none.
std::optional<std::string> mistakeInWords(const CLI::App& app)
{
    const auto chosen = app.get_subcommands();
    const bool isBeforeCommand = !app.remaining().empty() || chosen.empty();
    const CLI::App& place = isBeforeCommand ? app : *chosen.front();
    const auto words = place.remaining();
    if (words.empty())
        return std::nullopt;
    const std::string& word = words.front();
    const auto found = "found " + inQuotes(word) + ", expected ";
    if (word.starts_with('-')) {
        const auto owner = isBeforeCommand ? app.get_name() : app.get_name() + ' ' + place.get_name();
        return found + "an option of " + owner + helpFor(app, word.substr(0, word.find('=')), optionsOf(place));
    }
    if (isBeforeCommand)
        return found + "a command" + helpFor(app, word, commandsOf(app));
    return found + "no more words" + helpFor(app, word, {});
}

ExitStatus complainAboutCommandLine(const CLI::App& app, std::string message)
{
    if (const auto mistake = mistakeInWords(app)) {
        complain(*mistake);
        return ExitStatus::WrongInput;
    }
    // One line whatever the library has to say.
    std::ranges::replace(message, '\n', ' ');
    const bool isHelped = message.find("(did you mean ") != message.npos;
    complain(printable(message) + (isHelped ? "" : helpFor(app, {}, {})));
    return ExitStatus::WrongInput;
}

/// Help, or something else that was asked for instead of work.
ExitStatus answer(const CLI::App& app, const CLI::Success& request)
{
    app.exit(request);
    return endOfOutput();
}

/// The words in the order in which the library wants them, last first. `-h` alone is help for every command, also for
/// one that takes no short options because its values may look like some.
std::vector<std::string> wordsOf(int argumentCount, char** arguments)
{
    std::vector<std::string> words(arguments + std::min(argumentCount, 1), arguments + argumentCount);
    const auto end = std::ranges::find(words, "--");
    std::replace(words.begin(), end, std::string("-h"), std::string("--help"));
    std::ranges::reverse(words);
    return words;
}

ExitStatus run(CLI::App& app, const ExitStatus& status, int argumentCount, char** arguments)
{
    app.require_subcommand(0, 1);
    try {
        app.parse(wordsOf(argumentCount, arguments));
    } catch (const CLI::Success& request) {
        return answer(app, request);
    } catch (const CLI::ParseError& error) {
        return complainAboutCommandLine(app, error.what());
    }
    return app.get_subcommands().empty() ? complainAboutCommandLine(app, "a command is required") : status;
}

} // namespace

ExitStatus endOfOutput()
{
    if (std::cout.flush())
        return ExitStatus::AllWell;
    if (!isReaderGone())
        complain("standard output could not be written");
    return ExitStatus::FileFailed;
}

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
