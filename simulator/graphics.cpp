/// The program `panotra-graphics`, which `panotra` becomes for whatever draws.
#include "simulator/LinkedLibrary.h"
#include "simulator/commands/Commands.h"
#include "simulator/film/Film.h"
#include "simulator/picture/PlayWithPictures.h"
#include "simulator/picture/SinglePicture.h"
#include "simulator/window/OpenWindow.h"

using namespace panotra::sim;

int main(int argumentCount, char** arguments)
{
    CLI::App app("A volume mixer for the home screen, on a simulated device.", "panotra");
    auto status = ExitStatus::AllWell;
    addPlayCommand(app, status, [](const PlayOptions& options) { return playWithPictures(options, loadedLibrary()); });
    addPictureCommand(app, status, [](const PictureOptions& options) { return drawPicture(options, loadedLibrary()); });
    addWindowCommand(app, status, [](const WindowOptions& options) { return openWindow(options, loadedLibrary()); });
    addFilmCommand(app, status, [](const FilmOptions& options) { return makeFilm(options, loadedLibrary()); });
    return runCommandLine(app, status, argumentCount, arguments);
}
