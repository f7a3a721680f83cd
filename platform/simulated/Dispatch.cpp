/// Blocks on the main queue.
#include "platform/Dispatch.h"

#include "simulator/device/RunLoop.h"

#include <utility>

namespace panotra {

namespace {

constexpr double nanosecondsPerSecond = 1e9;

} // namespace

void dispatch_after(std::int64_t nanoseconds, std::function<void()> block) noexcept
{
    if (sim::Device* const device = sim::Device::current())
        device->runLoop->dispatch(static_cast<double>(nanoseconds) / nanosecondsPerSecond, std::move(block));
}

} // namespace panotra
