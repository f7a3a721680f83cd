/// Darwin notifications.
#include "platform/Notify.h"

#include "simulator/device/Services.h"

namespace panotra {

void notify_register_check(const char* name, std::int32_t* token) noexcept
{
    sim::Device* const device = sim::Device::current();
    if (device != nullptr && name != nullptr && token != nullptr)
        *token = device->darwin->registerCheck(name);
}

std::uint64_t notify_get_state(std::int32_t token) noexcept
{
    sim::Device* const device = sim::Device::current();
    return device == nullptr ? 0 : device->darwin->stateOf(token);
}

void notify_post(const char* name) noexcept
{
    sim::Device* const device = sim::Device::current();
    if (device != nullptr && name != nullptr)
        device->darwin->post(name);
}

void addDarwinObserver(const char* name, void (*callback)() noexcept) noexcept
{
    sim::Device* const device = sim::Device::current();
    if (device != nullptr && name != nullptr && callback != nullptr)
        device->darwin->addObserver(name, callback);
}

} // namespace panotra
