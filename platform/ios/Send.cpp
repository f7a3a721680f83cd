/// What a message may be sent to.
#include "platform/ios/Send.h"

#include "platform/ios/Classes.h"
#include "platform/ios/ObjectiveC.h"

namespace panotra::ios {

namespace {

/// An object may also forward what its class has not got, and then says so when asked; only objects that are sure
/// to answer the question are asked it. Seldom reached, and kept out of the way of what is.
[[gnu::noinline, gnu::cold]] bool forwards(id object, SEL selector) noexcept
{
    return isKindOf(object, classes::NSObject) && shielded([=] {
        return invoke<bool, SEL>(objc_msgSend, object, selectors::respondsToSelector.get(), selector);
    });
}

} // namespace

/// A class that lacks the method is asked by the runtime to make it, and may do so by code of its own.
bool instancesAnswer(Class hostClass, SEL selector) noexcept
{
    return shielded([=] { return class_respondsToSelector(toRuntime(hostClass), toRuntime(selector)) != 0; });
}

bool answers(id object, SEL selector) noexcept
{
    if (object == nullptr)
        return false;
    const bool isAnswered = shielded(
        [=] { return class_respondsToSelector(object_getClass(toRuntime(object)), toRuntime(selector)) != 0; });
    return isAnswered || forwards(object, selector);
}

/// Asks the runtime, not the object: an object that only claims a kind is none.
bool isKindOf(id object, Class ancestor) noexcept
{
    if (object == nullptr || ancestor == nullptr)
        return false;
    for (::Class kind = object_getClass(toRuntime(object)); kind != nullptr; kind = class_getSuperclass(kind)) {
        if (kind == toRuntime(ancestor))
            return true;
    }
    return false;
}

} // namespace panotra::ios
