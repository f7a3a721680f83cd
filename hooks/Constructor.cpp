/// The one static initialiser of the device library: the loader runs it when the library is loaded.
/// The simulated device leaves this file out and calls the constructor when a scenario loads the library.
#include "hooks/Panotra.h"
#include "platform/Runtime.h"

namespace {

[[gnu::constructor]] void initialize()
{
    const panotra::AutoreleasePool pool; // the dynamic loader keeps none
    panotra::constructor();
}

} // namespace
