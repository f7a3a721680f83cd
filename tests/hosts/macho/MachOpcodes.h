/// The small programs that tell which pointers of a library to fill. Internal to the reader of files.
#pragma once

#include "tests/hosts/macho/MachFile.h"

namespace panotra::hosts {

/// A stream for the first call has an end after each binding, not after all.
enum class BindingStream { AtLoad, AtFirstCall };

/// Adds what the stream says to the file, whose segments are known. Throws MachError for opcodes that do not exist or
/// lead to a place that cannot be written.
void readRebases(MachFile& file, Bytes stream);
void readBindings(MachFile& file, Bytes stream, BindingStream kind);

} // namespace panotra::hosts
