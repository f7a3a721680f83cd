/// A folder for the pictures of a play.
#include "simulator/picture/PlayWithPictures.h"

#include "simulator/picture/PictureFolder.h"

namespace panotra::sim {

ExitStatus playWithPictures(const PlayOptions& options, const Library& library)
{
    PictureFolder pictures(options.picturesFolder, complain);
    return play(options, library, &pictures);
}

} // namespace panotra::sim
