/// Method look-up, selectors and counting.
#include "simulator/device/Object.h"

#include "simulator/device/ClassTable.h"

#include <set>

namespace panotra {

HostClass::Implementation HostClass::find(const HostSelector* selector) const
{
    for (const HostClass* hostClass = this; hostClass != nullptr; hostClass = hostClass->superclass) {
        const auto method = hostClass->methods.find(selector);
        if (method != hostClass->methods.end())
            return method->second;
    }
    return nullptr;
}

bool HostClass::inheritsFrom(std::string_view className) const
{
    const HostClass* hostClass = this;
    while (hostClass != nullptr && hostClass->name != className)
        hostClass = hostClass->superclass;
    return hostClass != nullptr;
}

namespace sim {

namespace {

struct ByName {
    using is_transparent = void;
    bool operator()(const HostSelector& a, const HostSelector& b) const { return a.name < b.name; }
    bool operator()(const HostSelector& a, std::string_view b) const { return a.name < b; }
    bool operator()(std::string_view a, const HostSelector& b) const { return a < b.name; }
};

} // namespace

const HostSelector* selector(std::string_view name)
{
    static std::set<HostSelector, ByName> interned;
    auto place = interned.lower_bound(name);
    if (place == interned.end() || place->name != name)
        place = interned.insert(place, HostSelector { std::string(name) });
    return &*place;
}

void retain(HostObject* object)
{
    if (Device* const device = Device::current())
        device->classes->retain(object);
}

void release(HostObject* object)
{
    if (Device* const device = Device::current())
        device->classes->release(object);
}

} // namespace sim
} // namespace panotra
