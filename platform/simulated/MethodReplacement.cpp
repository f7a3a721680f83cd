/// Method replacement in the class table.
#include "platform/MethodReplacement.h"

#include "simulator/device/Services.h"

namespace panotra {

void replaceMethod(Class hostClass, const char* selector, IMP replacement, IMP* previous) noexcept
{
    sim::Device* const device = sim::Device::current();
    if (device != nullptr && hostClass != nullptr && selector != nullptr)
        device->classes->replace(*hostClass, sim::selector(selector), replacement, previous);
}

} // namespace panotra
