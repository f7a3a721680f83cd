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

/// Asks the runtime unless it said yes before, which is remembered.
[[gnu::noinline]] bool findOut(id object, Class objectClass, AnySelector& selector) noexcept
{
    if (selector.answering.hold(objectClass))
        return true;
    if (!instancesAnswer(objectClass, selector.get()))
        return forwards(object, selector.get());
    selector.answering.add(objectClass);
    return true;
}

/// Follows the superclasses unless that was done before, which is remembered.
[[gnu::noinline]] bool derives(Class hostClass, ClassName& ancestor) noexcept
{
    if (ancestor.derived.hold(hostClass))
        return true;
    ::Class const sought = toRuntime(ancestor.get());
    ::Class kind = toRuntime(hostClass);
    while (kind != nullptr && kind != sought)
        kind = class_getSuperclass(kind);
    if (kind == nullptr)
        return false;
    ancestor.derived.add(hostClass);
    return true;
}

} // namespace

Class ClassName::metaclassOf(Class hostClass) noexcept
{
    return hostClass != nullptr ? fromRuntime(object_getClass(toRuntime(objectOf(hostClass)))) : nullptr;
}

/// A class that lacks the method is asked by the runtime to make it, and may do so by code of its own.
bool instancesAnswer(Class hostClass, SEL selector) noexcept
{
    return shielded([=] { return class_respondsToSelector(toRuntime(hostClass), toRuntime(selector)) != 0; });
}

bool answers(id object, SEL selector) noexcept
{
    return object != nullptr
        && (instancesAnswer(fromRuntime(object_getClass(toRuntime(object))), selector) || forwards(object, selector));
}

bool answers(id object, AnySelector& selector) noexcept
{
    if (object == nullptr)
        return false;
    Class const objectClass = fromRuntime(object_getClass(toRuntime(object)));
    return selector.answering.beginWith(objectClass) || findOut(object, objectClass, selector);
}

bool answers(ClassName& receiver, AnySelector& selector) noexcept
{
    Class const metaclass = receiver.metaclass();
    return metaclass != nullptr
        && (selector.answering.beginWith(metaclass) || findOut(objectOf(receiver.get()), metaclass, selector));
}

/// Asks the runtime, not the object: an object that only claims a kind is none.
bool isKindOf(id object, ClassName& ancestor) noexcept
{
    if (object == nullptr)
        return false;
    Class const objectClass = fromRuntime(object_getClass(toRuntime(object)));
    return ancestor.derived.beginWith(objectClass) || derives(objectClass, ancestor);
}

} // namespace panotra::ios
