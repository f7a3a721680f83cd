/// `panotra-gallery FOLDER`: draws the gallery. Ends as `panotra` does: 0 all well, 2 a wrong command line, 3 a file or
/// a font failed.
#include "simulator/Bundle.h"
#include "simulator/Files.h"
#include "simulator/LinkedLibrary.h"
#include "simulator/gallery/Gallery.h"

int main(int argumentCount, char** arguments)
{
    using namespace panotra::sim;
    keepStandardStreams();
    if (argumentCount != 2 || arguments[1][0] == '-' || arguments[1][0] == '\0') {
        complain("usage: panotra-gallery FOLDER");
        return static_cast<int>(ExitStatus::WrongInput);
    }
    return static_cast<int>(makeGallery(arguments[1], loadedLibrary(), bundleBesideProgram()));
}
