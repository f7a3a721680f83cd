/// What every object can do: identity, fields by key, conversions, delayed performs.
#include "platform/NSObject.h"

#include "facts/WrappedInteger.h"
#include "platform/NSString.h"
#include "platform/ios/Classes.h"
#include "platform/ios/ObjectiveC.h"
#include "platform/ios/Send.h"

#include <array>
#include <cmath>
#include <string_view>

namespace panotra {

using namespace ios;

namespace {

/// Whether the runtime's type code is of a kind that key-value reads can make an object of: objects and scalars.
/// Qualifiers, such as "constant", stand before the code itself. The end of a text is none of either.
bool isReadable(const char* encoding)
{
    constexpr std::string_view qualifiers = "rnNoORV";
    constexpr std::string_view objectsAndScalars = "@cCsSiIlLqQfdB";
    if (encoding == nullptr)
        return false;
    while (qualifiers.find(*encoding) != qualifiers.npos)
        ++encoding;
    return objectsAndScalars.find(*encoding) != objectsAndScalars.npos;
}

constexpr unsigned receiverAndSelector = 2;

/// Whether a key-value read of `key` answers. The platform raises for a key that it cannot read, so everything
/// that it would find is looked for beforehand: a method of that name, else an instance variable.
bool hasReadableKey(id object, const char* key)
{
    ::Class const objectClass = object_getClass(toRuntime(object));
    if (::Method const getter = class_getInstanceMethod(objectClass, sel_registerName(key)))
        return method_getNumberOfArguments(getter) == receiverAndSelector && isReadable(method_getTypeEncoding(getter));
    if (!send(objectOf(fromRuntime(objectClass)), selectors::accessInstanceVariablesDirectly))
        return false;
    Ivar const variable = class_getInstanceVariable(objectClass, key);
    return variable != nullptr && isReadable(ivar_getTypeEncoding(variable));
}

/// A key that objects of the class were found to have.
struct KnownKey {
    ::Class objectClass = nullptr;
    const char* key = nullptr;
};

/// As many as there are keys that are read.
constinit std::array<KnownKey, 3> knownKeys {};
constinit std::size_t nextKnownKey = 0;

/// The same, looked for once.
bool isKnownToHaveReadableKey(id object, const char* key)
{
    ::Class const objectClass = object_getClass(toRuntime(object));
    for (const KnownKey& known : knownKeys) {
        if (known.objectClass == objectClass && known.key == key)
            return true;
    }
    if (!hasReadableKey(object, key))
        return false;
    knownKeys[nextKnownKey] = { objectClass, key };
    nextKnownKey = (nextKnownKey + 1) % knownKeys.size();
    return true;
}

bool isString(const NSObject& object)
{
    return isKindOf(object.get(), classes::NSString);
}

/// Only these two have conversions; anything else would raise.
bool isConvertible(const NSObject& object)
{
    return isKindOf(object.get(), classes::NSNumber) || isString(object);
}

/// A conversion of what is convertible: it need not be asked whether it has one.
template <typename Result> Result convert(const NSObject& object, Selector<Result()>& conversion)
{
    return deliver<Result>(object.get(), conversion.get());
}

/// A double has room for every integer below this one.
constexpr double exactIntegers = 9007199254740992.0;

/// A number that is stored as a larger integer must not go by way of a double.
bool isInteger(const NSObject& object)
{
    constexpr std::string_view floats = "fd";
    const char* const encoding = send(object.get(), selectors::objCType);
    return encoding != nullptr && floats.find(*encoding) == floats.npos;
}

} // namespace

bool NSObject::isEqual(const NSObject& other) const noexcept
{
    return send(get(), selectors::isEqual, other.get());
}

bool NSObject::respondsToSelector(const char* selector) const noexcept
{
    return selector != nullptr && answers(get(), selectorNamed(selector));
}

NSObject NSObject::valueForKey(const char* key) const noexcept
{
    if (get() == nullptr || key == nullptr || !shielded([&] { return isKnownToHaveReadableKey(get(), key); }))
        return nullptr;
    return ask<NSObject>(get(), selectors::valueForKey, NSString::constant(key).get());
}

bool NSObject::boolValue() const noexcept
{
    return isConvertible(*this) && convert(*this, selectors::boolValue);
}

float NSObject::floatValue() const noexcept
{
    return isConvertible(*this) ? convert(*this, selectors::floatValue) : 0;
}

double NSObject::doubleValue() const noexcept
{
    return isConvertible(*this) ? convert(*this, selectors::doubleValue) : 0;
}

std::int64_t NSObject::integerValue() const noexcept
{
    if (!isConvertible(*this))
        return 0;
    const double value = convert(*this, selectors::doubleValue);
    if (std::fabs(value) < exactIntegers || isString(*this) || !isInteger(*this))
        return wrappedInteger(value);
    return convert(*this, selectors::longLongValue);
}

std::uint16_t NSObject::unsignedShortValue() const noexcept
{
    return static_cast<std::uint16_t>(integerValue()); // a string has no such conversion of its own
}

/// A delay that is no number would leave the timer undefined.
void NSObject::performSelector(const char* selector, const NSObject& object, double delay) const noexcept
{
    if (selector == nullptr)
        return;
    const SEL name = selectorNamed(selector);
    if (answers(get(), name))
        send(get(), selectors::performSelector, name, object.get(), std::isnan(delay) ? 0 : delay);
}

void NSObject::cancelPreviousPerformRequests(
    const NSObject& target, const char* selector, const NSObject& object) noexcept
{
    if (target && selector != nullptr)
        send(classes::NSObject, selectors::cancelPreviousPerformRequests, target.get(), selectorNamed(selector),
            object.get());
}

} // namespace panotra
