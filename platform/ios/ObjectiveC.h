/// Between the seam's opaque handles and the runtime's own types: the same pointers under two names.
#pragma once

#include "platform/Runtime.h"

#include <objc/runtime.h>

namespace panotra::ios {

inline ::id toRuntime(id object) noexcept
{
    return reinterpret_cast<::id>(object);
}

inline ::Class toRuntime(Class hostClass) noexcept
{
    return reinterpret_cast<::Class>(hostClass);
}

inline ::SEL toRuntime(SEL selector) noexcept
{
    return reinterpret_cast<::SEL>(const_cast<HostSelector*>(selector));
}

inline id fromRuntime(::id object) noexcept
{
    return reinterpret_cast<id>(object);
}

inline Class fromRuntime(::Class hostClass) noexcept
{
    return reinterpret_cast<Class>(hostClass);
}

inline SEL fromRuntime(::SEL selector) noexcept
{
    return reinterpret_cast<SEL>(selector);
}

} // namespace panotra::ios
