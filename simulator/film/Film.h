/// `panotra film`: a scenario as a picture that moves.
#pragma once

#include "simulator/Play.h"
#include "simulator/film/FilmLook.h"

#include <functional>
#include <string>

namespace panotra::sim {

class FilmSet;
class MovingPicture;

struct FilmOptions {
    std::string scenarioFile; ///< "-": standard input
    std::string outputFile; ///< ends with .webp or .gif
    FilmLook look;
    std::string wallpaper = "dusk"; ///< "dusk", "dawn" or a PNG file
    bool mayOverwrite = false; ///< the output may be there already
    std::string resourceFolder {};
};

/// Complaints go to standard error, a line each; if that is a terminal, so does how far it is.
ExitStatus makeFilm(const FilmOptions& options, const Library& library);

/// Shows a moving picture that wants to see some of the film what there will be. The set is used up.
void takeSamples(FilmSet& set, MovingPicture& film);

/// All frames of a set as a file in memory. `tell`, which may be empty, hears how many frames of how many are done.
/// Empty and the reason in `failure` if it cannot be.
std::string shoot(FilmSet& set, MovingPicture& film, std::string& failure,
    const std::function<void(std::size_t done, std::size_t all)>& tell);

} // namespace panotra::sim
