/// Typed messages. The table of selectors carries each method's type, so that no call can get it wrong.
///
/// A message to null, or to an object that has no such method, does nothing and answers zero: a structure comes back
/// zeroed too, which the runtime itself does not promise, and nothing is raised.
#pragma once

#include "platform/NSObject.h"
#include "platform/ios/Abi.h"
#include "platform/ios/Names.h"
#include "platform/ios/Selectors.h"

#include <objc/message.h>
#include <type_traits>

namespace panotra::ios {

/// Whether `object` answers to the selector. False for null.
bool answers(id object, SEL selector) noexcept;
/// Whether `object`'s class is `ancestor` or inherits from it. False for null.
bool isKindOf(id object, Class ancestor) noexcept;
inline bool isKindOf(id object, ClassName& ancestor) noexcept
{
    return isKindOf(object, ancestor.get());
}

inline id objectOf(Class hostClass) noexcept
{
    return reinterpret_cast<id>(hostClass);
}

/// Calls a method's implementation, or a dispatcher that finds it, with the method's own type.
template <typename Result, typename... Parameters>
Result invoke(IMP implementation, id receiver, SEL selector, std::type_identity_t<Parameters>... arguments) noexcept
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

template <typename Result, typename... Parameters>
Result send(
    id receiver, Selector<Result(Parameters...)>& selector, std::type_identity_t<Parameters>... arguments) noexcept
{
    if (!answers(receiver, selector.get()))
        return Result();
    return invoke<Result, Parameters...>(dispatcher<Result>(), receiver, selector.get(), arguments...);
}

/// A message to the class itself.
template <typename Result, typename... Parameters>
Result send(ClassName& receiver, Selector<Result(Parameters...)>& selector,
    std::type_identity_t<Parameters>... arguments) noexcept
{
    return send(objectOf(receiver.get()), selector, arguments...);
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
    if (!answers(allocated.get(), initializer.get()))
        return nullptr;
    return adopt<Handle>(send(allocated.leak(), initializer, arguments...)); // the initialiser takes the count over
}

} // namespace panotra::ios
