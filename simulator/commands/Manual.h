/// What is told of the command line elsewhere than in its help: the manual page, and what shells complete. All of it is
/// made from the description that the command line is read by.
#pragma once

#include "simulator/commands/Commands.h"

#include <string>

namespace panotra::sim {

/// A page for section 1 of the manual, in the language of its formatter.
std::string manualPage(const CLI::App& app, const std::string& version);

/// Functions for the shell bash, to be read by bash-completion or by a person's own start-up file.
std::string bashCompletion(const CLI::App& app);
/// A function for the shell zsh, for a folder of its functions under the name `_panotra`.
std::string zshCompletion(const CLI::App& app);

/// Adds options for whoever builds packages, which help does not show: --manual, --completion-bash, --completion-zsh.
void addManual(CLI::App& app, const std::string& version);

} // namespace panotra::sim
