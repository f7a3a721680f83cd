/// Typed messages. The table of selectors carries each method's type, so that no call can get it wrong.
///
/// A message to null, to an object that has no such method, or to one that raises, answers zero: a structure comes back
/// zeroed too, which the runtime itself does not promise.
#pragma once

#include "platform/NSObject.h"
#include "platform/ios/Abi.h"
#include "platform/ios/Firewall.h"
#include "platform/ios/Names.h"
#include "platform/ios/Selectors.h"

#include <objc/message.h>
#include <type_traits>

namespace panotra::ios {

/// Whether objects of the class have a method of that name. Neither may be null.
bool instancesAnswer(Class hostClass, SEL selector) noexcept;
/// Whether `object` answers to the selector. False for null.
bool answers(id object, SEL selector) noexcept;
/// The same, and the runtime is only asked for what was not known yet.
bool answers(id object, AnySelector& selector) noexcept;
/// Whether the class itself answers. False for a class that is missing.
bool answers(ClassName& receiver, AnySelector& selector) noexcept;
/// Whether `object`'s class is `ancestor` or inherits from it. False for null.
bool isKindOf(id object, ClassName& ancestor) noexcept;

inline id objectOf(Class hostClass) noexcept
{
    return reinterpret_cast<id>(hostClass);
}

/// Calls a method's implementation, or a dispatcher that finds it, with the method's own type. It may raise.
template <typename Result, typename... Parameters>
Result invoke(IMP implementation, id receiver, SEL selector, std::type_identity_t<Parameters>... arguments)
{
    using Function = Wire<Result> (*)(id, SEL, Wire<Parameters>...);
    const auto function = reinterpret_cast<Function>(implementation);
    return static_cast<Result>(function(receiver, selector, static_cast<Wire<Parameters>>(arguments)...));
}

template <typename Result> IMP dispatcher() noexcept
{
#if !defined(__aarch64__)
    if constexpr (isAnsweredThroughMemory<Result>())
        return objc_msgSend_stret;
#endif
    return objc_msgSend;
}

/// Sends a message to a receiver that is known to answer it. As `shielded` does, it ends what the host raises, without
/// a function of its own for every message.
template <typename Result, typename... Parameters>
[[gnu::always_inline]] inline Result deliver(
    id receiver, SEL selector, std::type_identity_t<Parameters>... arguments) noexcept
{
    try {
        return invoke<Result, Parameters...>(dispatcher<Result>(), receiver, selector, arguments...);
    } catch (...) {
        return Result();
    }
}

template <typename Result, typename... Parameters>
Result send(
    id receiver, Selector<Result(Parameters...)>& selector, std::type_identity_t<Parameters>... arguments) noexcept
{
    return answers(receiver, selector) ? deliver<Result, Parameters...>(receiver, selector.get(), arguments...)
                                       : Result();
}

/// A message to the class itself.
template <typename Result, typename... Parameters>
Result send(ClassName& receiver, Selector<Result(Parameters...)>& selector,
    std::type_identity_t<Parameters>... arguments) noexcept
{
    return answers(receiver, selector)
        ? deliver<Result, Parameters...>(objectOf(receiver.get()), selector.get(), arguments...)
        : Result();
}

/// The object that a message answers. The answer is the host's: the handle adds a count of its own.
template <typename Handle, typename Receiver, typename... Parameters>
Handle ask(
    Receiver&& receiver, Selector<id(Parameters...)>& selector, std::type_identity_t<Parameters>... arguments) noexcept
{
    return retained<Handle>(send(receiver, selector, arguments...));
}

/// A new object, whose count is the handle's. Null where the class or its initialiser is missing.
template <typename Handle, typename... Parameters>
Handle create(
    ClassName& name, Selector<id(Parameters...)>& initializer, std::type_identity_t<Parameters>... arguments) noexcept
{
    Handle allocated = adopt<Handle>(send(name, selectors::alloc));
    if (!answers(allocated.get(), initializer))
        return nullptr;
    // The initialiser takes the count over. Where it raises, whether it let go of the object cannot be known, and
    // letting go of it twice would be worse than never.
    return adopt<Handle>(deliver<id, Parameters...>(allocated.leak(), initializer.get(), arguments...));
}

} // namespace panotra::ios
