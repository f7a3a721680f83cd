/// The process-wide values and the test for the home-screen process.
#include "model/ProcessValues.h"

#include "facts/PublicNames.h"
#include "platform/NSBundle.h"

namespace panotra {

// In one piece, even where a compiler sees all that is done with it: by its name it is found in a process from outside.
[[gnu::used]] constinit ProcessValues processValues;

bool isSpringBoardProcess() noexcept
{
    return NSBundle::mainBundle().bundleIdentifier().isEqualToString(homeScreenBundle);
}

} // namespace panotra
