/// The runtime's type code of a C++ type, for tables of fields, methods and messages.
#pragma once

#include "platform/CoreGraphics.h"
#include "platform/NSObject.h"

#include <type_traits>

namespace panotra {

template <typename T, typename = void> struct TypeEncoding;
template <> struct TypeEncoding<void> {
    static constexpr const char* value = "v";
};
template <> struct TypeEncoding<bool> {
    static constexpr const char* value = "B";
};
template <> struct TypeEncoding<float> {
    static constexpr const char* value = "f";
};
template <> struct TypeEncoding<double> {
    static constexpr const char* value = "d";
};
/// By width and sign: several types of C++ have the same.
template <typename T> struct TypeEncoding<T, std::enable_if_t<std::is_integral_v<T> && !std::is_same_v<T, bool>>> {
    static constexpr const char* value = sizeof(T) == 8 ? (std::is_signed_v<T> ? "q" : "Q")
        : sizeof(T) == 4                                ? (std::is_signed_v<T> ? "i" : "I")
        : sizeof(T) == 2                                ? (std::is_signed_v<T> ? "s" : "S")
                                                        : (std::is_signed_v<T> ? "c" : "C");
};
template <> struct TypeEncoding<id> {
    static constexpr const char* value = "@";
};
template <> struct TypeEncoding<SEL> {
    static constexpr const char* value = ":";
};
template <> struct TypeEncoding<void*> {
    static constexpr const char* value = "^v";
};
template <> struct TypeEncoding<id*> {
    static constexpr const char* value = "^@";
};
template <> struct TypeEncoding<float*> {
    static constexpr const char* value = "^f";
};
template <> struct TypeEncoding<double*> {
    static constexpr const char* value = "^d";
};
template <> struct TypeEncoding<CGPoint> {
    static constexpr const char* value = sizeof(CGFloat) == 8 ? "{CGPoint=dd}" : "{CGPoint=ff}";
};
template <> struct TypeEncoding<CGRect> {
    static constexpr const char* value
        = sizeof(CGFloat) == 8 ? "{CGRect={CGPoint=dd}{CGSize=dd}}" : "{CGRect={CGPoint=ff}{CGSize=ff}}";
};
template <> struct TypeEncoding<CGAffineTransform> {
    static constexpr const char* value
        = sizeof(CGFloat) == 8 ? "{CGAffineTransform=dddddd}" : "{CGAffineTransform=ffffff}";
};
template <typename T> struct TypeEncoding<T, std::enable_if_t<std::is_base_of_v<NSObject, T>>> {
    static constexpr const char* value = "@";
};

} // namespace panotra
