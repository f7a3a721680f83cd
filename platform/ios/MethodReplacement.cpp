/// Method replacement by the loader's hooking framework: the one file that knows which framework that is.
#include "platform/MethodReplacement.h"

#include "platform/ios/ObjectiveC.h"

#include <cstdlib>
#include <substrate.h>

namespace panotra {

using ios::fromRuntime;
using ios::toRuntime;

namespace {

/// The method that the class itself brings; null for one that it inherits or lacks.
::Method ownMethod(::Class hostClass, ::SEL name)
{
    unsigned count = 0;
    ::Method* const methods = class_copyMethodList(hostClass, &count);
    ::Method found = nullptr;
    for (unsigned i = 0; i < count && found == nullptr; ++i) {
        if (method_getName(methods[i]) == name)
            found = methods[i];
    }
    std::free(methods);
    return found;
}

/// The method that objects of the class have. The runtime's own look-up is for later: over a method that is missing it
/// asks the class to make one, and a class's first message runs its `+initialize`, long before the host is ready for
/// it.
::Method findMethod(::Class hostClass, ::SEL name)
{
    ::Method found = nullptr;
    for (; hostClass != nullptr && found == nullptr; hostClass = class_getSuperclass(hostClass))
        found = ownMethod(hostClass, name);
    return found;
}

} // namespace

/// The hooking framework aborts the process over a missing class and complains of a missing method, so it is not
/// asked. The previous implementation is stored beforehand: another thread may call the replacement before the
/// framework returns. What the framework stores in the end, which may be a trampoline of its own, stands.
void replaceMethod(Class hostClass, const char* selector, IMP replacement, IMP* previous) noexcept
{
    if (hostClass == nullptr || selector == nullptr)
        return;
    ::SEL const name = sel_registerName(selector);
    ::Method const method = findMethod(toRuntime(hostClass), name);
    if (method == nullptr)
        return;
    if (previous != nullptr)
        *previous = method_getImplementation(method);
    ::MSHookMessageEx(toRuntime(hostClass), name, replacement, previous);
}

void overrideInherited(Class hostClass, const char* selector, IMP callInherited) noexcept
{
    if (hostClass == nullptr || selector == nullptr)
        return;
    ::Class const overriding = toRuntime(hostClass);
    ::SEL const name = sel_registerName(selector);
    if (ownMethod(overriding, name) != nullptr)
        return;
    if (::Method const inherited = findMethod(class_getSuperclass(overriding), name))
        class_addMethod(overriding, name, callInherited, method_getTypeEncoding(inherited));
}

IMP inheritedImplementation(Class hostClass, SEL selector)
{
    ::Class const superclass = class_getSuperclass(toRuntime(hostClass));
    return superclass != nullptr ? class_getMethodImplementation(superclass, toRuntime(selector)) : nullptr;
}

bool hasMethod(Class hostClass, const char* selector) noexcept
{
    return hostClass != nullptr && selector != nullptr
        && findMethod(toRuntime(hostClass), sel_registerName(selector)) != nullptr;
}

} // namespace panotra
