/// What the runner of scenario tests plays with.
#include "simulator/LinkedLibrary.h"
#include "tests/hosts/HostLibrary.h"

namespace panotra::sim {

Library loadedLibrary()
{
    return hosts::chosenLibrary();
}

} // namespace panotra::sim
