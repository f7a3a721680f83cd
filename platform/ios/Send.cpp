/// What a message may be sent to.
#include "platform/ios/Send.h"

#include "platform/ios/Classes.h"
#include "platform/ios/ObjectiveC.h"

namespace panotra::ios {

/// An object may also forward what its class has not got, and then says so when asked; only objects that are sure
/// to answer the question are asked it.
bool answers(id object, SEL selector) noexcept
{
    if (object == nullptr)
        return false;
    if (class_respondsToSelector(object_getClass(toRuntime(object)), toRuntime(selector)) != 0)
        return true;
    return isKindOf(object, classes::NSObject)
        && invoke<bool, SEL>(objc_msgSend, object, selectors::respondsToSelector.get(), selector);
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
