/// Messages to the superclass, for classes of ours.
#pragma once

#include "platform/ClassDescription.h"
#include "platform/ios/ObjectiveC.h"
#include "platform/ios/Send.h"

namespace panotra::ios {

/// The superclass of our class, if `self` is an object of it or of a class derived from it; else null.
Class superclassOf(id self, const ClassDescription&) noexcept;

/// Calls the implementation that `hostClass` is known to have or to inherit. What it raises ends there.
template <typename Result, typename... Parameters>
Result deliverAs(Class hostClass, id receiver, SEL selector, std::type_identity_t<Parameters>... arguments) noexcept
{
    static_assert(!isAnsweredThroughMemory<Result>());
    return shielded([&] {
        return invoke<Result, Parameters...>(
            class_getMethodImplementation(toRuntime(hostClass), toRuntime(selector)), receiver, selector, arguments...);
    });
}

/// The same of a class that may have none: then nothing happens and zero is answered.
template <typename Result, typename... Parameters>
Result sendAs(Class hostClass, id receiver, Selector<Result(Parameters...)>& selector,
    std::type_identity_t<Parameters>... arguments) noexcept
{
    if (receiver == nullptr || hostClass == nullptr || !instancesAnswer(hostClass, selector.get()))
        return Result();
    return deliverAs<Result, Parameters...>(hostClass, receiver, selector.get(), arguments...);
}

/// `[super …]` in a method of ours.
template <typename Result, typename... Parameters>
Result sendSuper(id self, const ClassDescription& description, Selector<Result(Parameters...)>& selector,
    std::type_identity_t<Parameters>... arguments) noexcept
{
    return sendAs(superclassOf(self, description), self, selector, arguments...);
}

} // namespace panotra::ios
