/// How the program ends, whatever it was asked for.
#pragma once

namespace panotra::sim {

enum class ExitStatus {
    AllWell = 0,
    NotFulfilled = 1, ///< an expectation failed, or there is no such key
    WrongInput = 2, ///< the scenario or the command line; nothing was run
    FileFailed = 3, ///< a file could not be read or written, or was set aside before what was asked was done
};

} // namespace panotra::sim
