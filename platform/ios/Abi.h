/// What the platform's processors do differently: truth values, integers of the pointer's width, structures as
/// answers. Nothing else in this folder asks which processor it is compiled for.
#pragma once

#include <cstdint>
#include <objc/objc.h>
#include <type_traits>

namespace panotra::ios {

/// The type in which a value crosses into the host: its own, but for truth values, which are a character on the
/// 32-bit platform and under the runtime of the tests.
template <typename T> struct WireType {
    using Type = T;
};
template <> struct WireType<bool> {
    using Type = BOOL;
};
template <typename T> using Wire = typename WireType<T>::Type;

/// Whether a method answers such a value through memory, which takes another way of dispatch than a value in registers.
template <typename Result> constexpr bool isAnsweredThroughMemory()
{
#if defined(__aarch64__)
    return false;
#elif defined(__x86_64__)
    if constexpr (std::is_class_v<Result>)
        return sizeof(Result) > 16;
    return false;
#elif defined(__arm__)
    return std::is_class_v<Result>;
#else
#error "How this processor answers structures is not known here."
#endif
}

} // namespace panotra::ios
