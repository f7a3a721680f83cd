/// Method replacement by the loader's hooking framework: the one file that knows which framework that is.
#include "platform/MethodReplacement.h"

#include "platform/ios/ObjectiveC.h"

#include <substrate.h>

namespace panotra {

using ios::toRuntime;

/// The hooking framework aborts the process over a missing class and complains of a missing method, so it is not
/// asked. The previous implementation is stored beforehand: another thread may call the replacement before the
/// framework returns. What the framework stores in the end, which may be a trampoline of its own, stands.
void replaceMethod(Class hostClass, const char* selector, IMP replacement, IMP* previous) noexcept
{
    if (hostClass == nullptr || selector == nullptr)
        return;
    ::SEL const name = sel_registerName(selector);
    if (class_getInstanceMethod(toRuntime(hostClass), name) == nullptr)
        return;
    if (previous != nullptr)
        *previous = class_getMethodImplementation(toRuntime(hostClass), name);
    ::MSHookMessageEx(toRuntime(hostClass), name, replacement, previous);
}

} // namespace panotra
