/// The command line of `panotra prefs`.
#include "simulator/commands/Commands.h"

#include "simulator/commands/Prefs.h"

#include <iostream>
#include <map>
#include <memory>
#include <string>

#include <unistd.h>

namespace panotra::sim {

namespace {

using preferences::PrefsAction;
using preferences::PrefsRequest;

ExitStatus run(PrefsRequest request)
{
    request.isForTerminal = ::isatty(STDOUT_FILENO) == 1;
    const ExitStatus status = preferences::runPrefsCommand(request, std::cout, std::cerr);
    return status == ExitStatus::AllWell ? endOfOutput() : status;
}

} // namespace

void addPrefsCommand(CLI::App& app, ExitStatus& status)
{
    static const std::map<std::string, PrefsAction> actions { { "list", PrefsAction::List },
        { "get", PrefsAction::Get }, { "set", PrefsAction::Set }, { "unset", PrefsAction::Unset } };

    const auto request = std::make_shared<PrefsRequest>();
    CLI::App* const command = app.add_subcommand("prefs", "Look at the settings, or change them as another process");
    // A value may begin with -h: it is refused like any other option, instead of being taken for a call for help.
    command->set_help_flag("--help", "Print this help message and exit; -h does so as well");
    const auto setAction = [request](const std::string& word) {
        request->action = actions.at(word);
    };
    command->add_option_function<std::string>("ACTION", setAction, "list, get, set or unset")
        ->required()
        ->check(CLI::IsMember(&actions))
        ->type_name("");
    command->add_option("DOMAIN", request->domain, "The preference domain, as net.qorvath.panotra")
        ->required()
        ->type_name("");
    command->add_option("KEY", request->key, "The key; not for list")->type_name("");
    command->add_option("TYPE", request->type, "For set: int, float, bool or string")->type_name("");
    command->add_option("VALUE", request->value, "For set; a bool is yes or no, a float may be inf, -inf or nan")
        ->type_name("");
    command
        ->add_option("--prefs", request->folder,
            "The folder of the property lists (default $XDG_DATA_HOME/panotra/preferences or "
            "~/.local/share/panotra/preferences)")
        ->type_name("DIR");
    command->footer("Write -- before a key or value that begins with a minus sign and a letter.\nset warns of a key "
                    "that the mixer does not "
                    "have, and of a value that it does not offer, and stores it all the same.\nExit status: 0 done, "
                    "1 there is no such key, 2 the command line is wrong, 3 a file could not be "
                    "read or written.\nset puts a file that is no property list aside under another name, sets "
                    "the key in a new one, and ends\nwith 3; the other actions leave such a file where it is.");
    command->callback([request, &status] { status = run(*request); });
}

} // namespace panotra::sim
