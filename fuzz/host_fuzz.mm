/// Feeds any bytes to the device library as what a home screen does: announcements with any values, settings, gestures,
/// touches, drags, turns of the phone. All inputs go into one process, as on a phone; none may lose an announcement.
#include "tests/hosts/HostileSteps.h"

#include "simulator/device/HomeScreen.h"
#include "simulator/device/RunLoop.h"
#include "tests/hosts/HostLibrary.h"

#include <nlohmann/json.hpp>

#include <cstddef>
#include <cstdint>
#include <cstdlib>

namespace {

using namespace panotra;

/// A home screen that has launched with the library in it.
struct LaunchedProcess {
    sim::Device device;
    std::size_t announced = 0;

    LaunchedProcess()
    {
        hosts::chosenLibrary().load();
        device.home->finishLaunching();
        device.runLoop->turn();
        device.traceSink = [this](const sim::Json& event) {
            announced += event["event"] == "announced" ? 1 : 0;
        };
    }
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    NSAutoreleasePool* const pool = [NSAutoreleasePool new]; // or what one input leaves would stay for all others
    static LaunchedProcess process;
    process.announced = 0;
    constexpr std::size_t bytesOfAStep = 6;
    std::size_t at = 0;
    const auto roll = [&](unsigned sides) {
        unsigned value = 0;
        for (int i = 0; i < 2 && at < size; ++i)
            value = value << 8 | data[at++];
        return value % sides;
    };
    const std::size_t asked = testing::doAnything(process.device, static_cast<int>(1 + size / bytesOfAStep), roll);
    process.device.runLoop->wait(100); // nothing is left of one input for the next
    [pool drain];
    if (process.announced != asked)
        std::abort();
    return 0;
}
