/// The program `panotra-desktop`, which `panotra desktop` becomes.
#include "simulator/Bundle.h"
#include "simulator/LinkedLibrary.h"
#include "simulator/commands/Commands.h"
#include "simulator/desktop/OpenDesktop.h"

using namespace panotra::sim;

int main(int argumentCount, char** arguments)
{
    CLI::App app("A volume mixer for the home screen, on a simulated device.", "panotra");
    auto status = ExitStatus::AllWell;
    addDesktopCommand(app, status, [](DesktopOptions options) {
        options.resourceFolder = bundleBesideProgram();
        return openDesktop(options, loadedLibrary());
    });
    return runCommandLine(app, status, argumentCount, arguments);
}
