/// `panotra play`: a scenario from its file to its trace.
#pragma once

#include "simulator/ExitStatus.h"
#include "simulator/scenario/Library.h"
#include "simulator/scenario/Pictures.h"
#include "simulator/scenario/TraceWriter.h"

#include <optional>
#include <string>

namespace panotra::sim {

struct PlayOptions {
    std::string scenarioFile; ///< "-": standard input
    std::optional<std::string> preferencesFolder; ///< none: domains live in memory
    TraceFormat format = TraceFormat::Story;
    TextLook look {};
    std::optional<std::string> traceFile; ///< none: standard output
    std::string picturesFolder = ".";
    std::string resourceFolder {}; ///< the bundle with the mixer's own pictures; empty: it has none
};

/// Plays the scenario on a device of its own. `pictures`: null where nothing can be drawn. Complaints go to standard
/// error, a line each.
ExitStatus play(const PlayOptions& options, const Library& library, Pictures* pictures = nullptr);

/// Whether the scenario might take a picture, which only some programs can: the word stands in it, or it is no file
/// that could be read twice.
bool mayTakePictures(const std::string& scenarioFile);

/// Writes a complaint of the program itself to standard error, "panotra: …".
void complain(const std::string& message);

} // namespace panotra::sim
