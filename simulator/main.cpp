/// The program `panotra`.
#include "simulator/LinkedLibrary.h"
#include "simulator/commands/Commands.h"
#include "simulator/commands/DesktopProgram.h"
#include "simulator/commands/Manual.h"
#include "simulator/desktop/OpenDesktop.h"

using namespace panotra::sim;

int main(int argumentCount, char** arguments)
{
    CLI::App app("A volume mixer for the home screen, on a simulated device.", "panotra");
    app.set_version_flag("--version", "panotra " PANOTRA_VERSION);
    auto status = ExitStatus::AllWell;
    addPlayCommand(app, status, loadedLibrary());
    addPictureCommand(app, status);
    addPrefsCommand(app, status);
    addWindowCommand(app, status);
    addFilmCommand(app, status);
    addDesktopCommand(app, status, [arguments](const DesktopOptions&) { return becomeDesktopProgram(arguments); });
    addManual(app, PANOTRA_VERSION);
    return runCommandLine(app, status, argumentCount, arguments);
}
