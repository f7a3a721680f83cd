/// How a film is made of a scenario.
#pragma once

namespace panotra::sim {

struct FilmSize {
    int width = 0; ///< pixels
    int height = 0;
};

enum class Captions { Hidden, Shown };

struct FilmLook {
    FilmSize size { 360, 720 };
    int framesPerSecond = 30; ///< above 0
    double speed = 1; ///< the scenario's seconds in one of the film; above 0
    Captions captions = Captions::Hidden;
};

} // namespace panotra::sim
