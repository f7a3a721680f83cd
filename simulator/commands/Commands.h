/// What `panotra` can be told to do: a function a command describes it to the reader of the command line.
#pragma once

#include "simulator/Play.h"

#include <CLI/CLI.hpp>

namespace panotra::sim {

// If its command stands on the command line, parsing runs it and puts into `status` how it ended.
void addPlayCommand(CLI::App& app, ExitStatus& status);
void addPictureCommand(CLI::App& app, ExitStatus& status);
void addPrefsCommand(CLI::App& app, ExitStatus& status);
void addWindowCommand(CLI::App& app, ExitStatus& status);

} // namespace panotra::sim
