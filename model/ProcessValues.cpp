/// The process-wide values and the test for the home-screen process.
#include "model/ProcessValues.h"

#include "facts/PublicNames.h"
#include "platform/NSBundle.h"

namespace panotra {

constinit ProcessValues processValues;

bool isSpringBoardProcess() noexcept
{
    return NSBundle::mainBundle().bundleIdentifier().isEqualToString(homeScreenBundle);
}

} // namespace panotra
