/// The main thread, and blocks on its queue.
#include "platform/Dispatch.h"

#include "simulator/device/RunLoop.h"

#include <memory>
#include <utility>

namespace panotra {

namespace {

constexpr double nanosecondsPerSecond = 1e9;

} // namespace

bool isMainThread() noexcept
{
    const sim::Device* const device = sim::Device::current();
    return device == nullptr || device->isMainThread();
}

void dispatch_async_f(void* context, void (*work)(void* context)) noexcept
{
    if (sim::Device* const device = sim::Device::current())
        device->runLoop->post([context, work] { work(context); });
}

void dispatch_after(std::int64_t nanoseconds, Block<void()> block) noexcept
{
    if (sim::Device* const device = sim::Device::current())
        device->runLoop->dispatch(static_cast<double>(nanoseconds) / nanosecondsPerSecond,
            [kept = std::make_shared<Block<void()>>(std::move(block))] { (*kept)(); });
}

} // namespace panotra
