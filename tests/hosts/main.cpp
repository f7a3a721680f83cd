/// The command line of `panotra-objc`: `panotra play`, with the library as a file in a process of Objective-C objects.
#include "simulator/commands/Commands.h"
#include "simulator/picture/PlayWithPictures.h"
#include "tests/hosts/HostLibrary.h"

#include <string>

using namespace panotra;

int main(int argumentCount, char** arguments)
{
    CLI::App app("The mixer's library as a file, in a process of Objective-C objects.", "panotra-objc");
    auto status = sim::ExitStatus::AllWell;
    sim::addPlayCommand(app, status,
        [](const sim::PlayOptions& options) { return sim::playWithPictures(options, hosts::chosenLibrary()); })
        ->add_option_function<std::string>("--library", hosts::chooseLibrary,
            "The library's file; without it, the one that was built for this machine")
        ->type_name("FILE");
    return sim::runCommandLine(app, status, argumentCount, arguments);
}
