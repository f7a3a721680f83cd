/// Options that take names in place of numbers, for the reader of the command line.
#pragma once

#include "simulator/commands/NamedNumbers.h"

#include <CLI/CLI.hpp>

namespace panotra::sim {

/// For `transform` of an option that is a number of the table, or its name.
CLI::Validator named(NamedNumbers names);
/// The same for an option that is "NAME=VALUE".
CLI::Validator namedBeforeEquals(NamedNumbers names);

} // namespace panotra::sim
