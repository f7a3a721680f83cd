/// Handles on preference domains.
#include "platform/NSUserDefaults.h"

#include "platform/simulated/Host.h"
#include "simulator/device/Preferences.h"

namespace panotra {

NSUserDefaults NSUserDefaults::initWithSuiteName(const NSString& suite) noexcept
{
    const std::string* const domain = sim::textOf(simulated::objectOf(suite));
    if (domain == nullptr)
        return nullptr;
    sim::Device& device = *sim::Device::current();
    HostClass* const hostClass = device.classes->find("NSUserDefaults");
    if (hostClass == nullptr)
        return nullptr;
    sim::PreferenceHandle* const handle = device.preferences->open(*domain);
    device.classes->adopt(handle, *hostClass);
    return adopt<NSUserDefaults>(handle);
}

void NSUserDefaults::synchronize() const noexcept
{
    if (auto* const handle = simulated::objectOf<sim::PreferenceHandle>(*this))
        handle->synchronize();
}

NSObject NSUserDefaults::objectForKey(const NSString& key) const noexcept
{
    const auto* const handle = simulated::objectOf<sim::PreferenceHandle>(*this);
    const std::string* const name = sim::textOf(simulated::objectOf(key));
    if (handle == nullptr || name == nullptr)
        return nullptr;
    std::optional<sim::Json> value = handle->objectForKey(*name);
    if (!value.has_value())
        return nullptr;
    if (value->is_string())
        return simulated::create<NSObject, sim::String>("NSString", value->get<std::string>());
    if (value->is_number() || value->is_boolean())
        return simulated::create<NSObject, sim::Number>("NSNumber", std::move(*value));
    // There is something, only nothing that converts.
    return simulated::create<NSObject, HostObject>("NSObject");
}

void NSUserDefaults::setObject(const NSNumber& value, const NSString& key) const noexcept
{
    auto* const handle = simulated::objectOf<sim::PreferenceHandle>(*this);
    const std::string* const name = sim::textOf(simulated::objectOf(key));
    if (handle != nullptr && value && name != nullptr)
        handle->setFloat(*name, value.floatValue());
}

} // namespace panotra
