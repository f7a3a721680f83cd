/// Bundles: the process's own, and resource folders, every one of which exists.
#include "platform/NSBundle.h"

#include "platform/simulated/Host.h"

namespace panotra {

NSBundle NSBundle::mainBundle() noexcept
{
    sim::Device* const device = sim::Device::current();
    if (device == nullptr)
        return nullptr;
    return simulated::create<NSBundle, sim::Bundle>("NSBundle", device->bundleIdentifier);
}

NSBundle NSBundle::bundleWithPath(const char* path) noexcept
{
    return path == nullptr ? NSBundle() : simulated::create<NSBundle, sim::Bundle>("NSBundle");
}

NSString NSBundle::bundleIdentifier() const noexcept
{
    const auto* const bundle = simulated::objectOf<sim::Bundle>(*this);
    if (bundle == nullptr || !bundle->identifier.has_value())
        return nullptr;
    return NSString::stringWithUTF8String(bundle->identifier->c_str());
}

} // namespace panotra
