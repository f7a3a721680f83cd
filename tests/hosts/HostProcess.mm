/// Before the library comes.
#include "tests/hosts/HostProcess.h"

#include "tests/hosts/DeviceCalls.h"
#include "tests/hosts/Values.h"
#include "tests/hosts/classes/Foundation.h"
#include "tests/hosts/classes/SystemClasses.h"

#include <cstdlib>
#include <utility>

namespace panotra::hosts {

void startFoundation()
{
    static bool isStarted = false;
    if (std::exchange(isStarted, true))
        return;
    // Foundation would make a folder for its defaults in the user's home.
    setenv("GNUSTEP_CONFIG_FILE", PANOTRA_GNUSTEP_CONFIG, 1);
    [NSAutoreleasePool new]; // for the life of the process
    makeFoundationTheDevices();
}

void prepareProcess()
{
    static bool isPrepared = false;
    if (std::exchange(isPrepared, true))
        return;
    startFoundation();
    makeSystemClasses();
    routeDeviceCallsThroughMessages();
}

std::optional<std::string> textOfString(void* string)
{
    return textOf(static_cast<id>(string));
}

} // namespace panotra::hosts
