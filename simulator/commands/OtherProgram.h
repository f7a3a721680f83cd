/// How `panotra` becomes a program that knows more libraries than most of its commands need: each library that is
/// loaded takes time before the first word.
#pragma once

#include "simulator/ExitStatus.h"

namespace panotra::sim {

/// Goes on as the program of that name, which lies beside the running one, with the same arguments. Comes back only if
/// that fails, after a complaint.
ExitStatus becomeProgram(const char* name, char** arguments);

} // namespace panotra::sim
