/// What `panotra` can be told to do: a function a command describes it to the reader of the command line.
#pragma once

#include "simulator/Play.h"

#include <CLI/CLI.hpp>

#include <functional>

namespace panotra::sim {

struct DesktopOptions;
struct FilmOptions;
struct PictureOptions;
struct WindowOptions;

/// Carries a command out.
template <typename Options> using Work = std::function<ExitStatus(const Options& options)>;

// If its command stands on the command line, parsing runs it and puts into `status` how it ended.
void addPictureCommand(CLI::App& app, ExitStatus& status, Work<PictureOptions> draw);
void addPrefsCommand(CLI::App& app, ExitStatus& status);
void addFilmCommand(CLI::App& app, ExitStatus& status, Work<FilmOptions> make);
void addWindowCommand(CLI::App& app, ExitStatus& status, Work<WindowOptions> open);
void addDesktopCommand(CLI::App& app, ExitStatus& status, Work<DesktopOptions> open);
/// Answers the command, to which options may be added.
CLI::App* addPlayCommand(CLI::App& app, ExitStatus& status, Work<PlayOptions> play);

/// What was asked for must have reached whoever reads standard output. If not, that is complained of.
ExitStatus endOfOutput();

/// Reads the command line and runs the command that stands on it. A mistake is complained of in a line. Answers the
/// status of the process: `status` as the command left it, or that of a wrong command line.
int runCommandLine(CLI::App& app, const ExitStatus& status, int argumentCount, char** arguments);

} // namespace panotra::sim
