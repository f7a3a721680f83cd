/// Rows of a class's method table, made from C++ member functions.
///
/// methodEntry<&PNOController::destroyHUDWindow>("destroyHUDWindow") is the row whose implementation takes the
/// host's arguments, turns objects into handles, calls the member function and turns its answer back.
#pragma once

#include "platform/ClassDescription.h"
#include "platform/NSString.h"

#include <array>
#include <cstddef>
#include <string_view>

namespace panotra {

/// How a C++ type crosses the seam: scalars and plain structures as they are, handles as borrowed objects.
template <typename T, typename = void> struct Crossing {
    using Foreign = T;
    static T in(T value) noexcept { return value; }
    static T out(T value) noexcept { return value; }
};

template <typename T> struct Crossing<T, std::enable_if_t<std::is_base_of_v<NSObject, T>>> {
    using Foreign = id;
    static T in(id object) noexcept { return retained<T>(object); }
    static id out(T handle) noexcept { return autorelease(handle.leak()); }
};

/// A string that comes from the host may be anything: what is no string becomes null.
template <> struct Crossing<NSString> {
    using Foreign = id;
    static NSString in(id object) noexcept { return NSString::checked(retained<NSObject>(object)); }
    static id out(NSString handle) noexcept { return autorelease(handle.leak()); }
};

/// The runtime's type code of a method: result, receiver, selector, arguments.
template <typename... Types> struct SignatureEncoding {
    static constexpr auto value = [] {
        constexpr std::size_t length = (std::string_view(TypeEncoding<Types>::value).size() + ... + 0);
        std::array<char, length + 3> text {};
        std::size_t at = 0;
        const auto append = [&](std::string_view code) {
            for (const char character : code)
                text[at++] = character;
            if (at == code.size()) { // behind the result
                text[at++] = '@';
                text[at++] = ':';
            }
        };
        (append(TypeEncoding<Types>::value), ...);
        return text;
    }();
};

template <auto Function> struct MethodThunk;

template <typename Handle, typename Result, typename... Arguments, Result (Handle::*Function)(Arguments...) const>
struct MethodThunk<Function> {
    static auto call(id self, SEL, typename Crossing<std::remove_cvref_t<Arguments>>::Foreign... arguments) noexcept
    {
        const Handle receiver = retained<Handle>(self);
        if constexpr (std::is_void_v<Result>)
            (receiver.*Function)(Crossing<std::remove_cvref_t<Arguments>>::in(arguments)...);
        else
            return Crossing<Result>::out(
                (receiver.*Function)(Crossing<std::remove_cvref_t<Arguments>>::in(arguments)...));
    }
    static constexpr const char* encoding = SignatureEncoding<Result, std::remove_cvref_t<Arguments>...>::value.data();
};

/// A static member function as a method of the class: the receiver, the class itself, is not used.
template <typename Result, typename... Arguments, Result (*Function)(Arguments...) noexcept>
struct MethodThunk<Function> {
    static auto call(id, SEL, typename Crossing<std::remove_cvref_t<Arguments>>::Foreign... arguments) noexcept
    {
        return Crossing<std::remove_cvref_t<Result>>::out(
            Function(Crossing<std::remove_cvref_t<Arguments>>::in(arguments)...));
    }
    static constexpr const char* encoding
        = SignatureEncoding<std::remove_cvref_t<Result>, std::remove_cvref_t<Arguments>...>::value.data();
};

template <auto Function> Method methodEntry(const char* selector) noexcept
{
    return { selector, MethodThunk<Function>::encoding, reinterpret_cast<IMP>(&MethodThunk<Function>::call) };
}

} // namespace panotra
