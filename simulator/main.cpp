/// The program `panotra`. What draws or plays sound is carried out by two other programs, which it becomes.
#include "simulator/LinkedLibrary.h"
#include "simulator/commands/Commands.h"
#include "simulator/commands/Manual.h"
#include "simulator/commands/OtherProgram.h"
#include "simulator/desktop/OpenDesktop.h"
#include "simulator/film/Film.h"
#include "simulator/picture/SinglePicture.h"
#include "simulator/window/OpenWindow.h"

using namespace panotra::sim;

int main(int argumentCount, char** arguments)
{
    const auto draw = [arguments] {
        return becomeProgram("panotra-graphics", arguments);
    };
    CLI::App app("A volume mixer for the home screen, on a simulated device.", "panotra");
    app.set_version_flag("--version", "panotra " PANOTRA_VERSION);
    auto status = ExitStatus::AllWell;
    addPlayCommand(app, status, [draw](const PlayOptions& options) {
        return mayTakePictures(options.scenarioFile) ? draw() : play(options, loadedLibrary());
    });
    addPictureCommand(app, status, [draw](const PictureOptions&) { return draw(); });
    addPrefsCommand(app, status);
    addWindowCommand(app, status, [draw](const WindowOptions&) { return draw(); });
    addFilmCommand(app, status, [draw](const FilmOptions&) { return draw(); });
    addDesktopCommand(
        app, status, [arguments](const DesktopOptions&) { return becomeProgram("panotra-desktop", arguments); });
    addManual(app, PANOTRA_VERSION);
    return runCommandLine(app, status, argumentCount, arguments);
}
