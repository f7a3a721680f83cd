/// What every object can do: identity, fields by key, conversions, delayed performs.
#include "platform/NSObject.h"

#include "facts/WrappedInteger.h"
#include "platform/simulated/Host.h"
#include "simulator/device/Preferences.h"
#include "simulator/device/RunLoop.h"

namespace panotra {

namespace {

/// A number's or a string's value; null, which converts to zero, for everything else.
sim::Json valueOf(const NSObject& handle)
{
    if (const auto* const number = simulated::objectOf<sim::Number>(handle))
        return number->value;
    if (const auto* const string = simulated::objectOf<sim::String>(handle))
        return string->text;
    return nullptr;
}

} // namespace

bool NSObject::isEqual(const NSObject& other) const noexcept
{
    const HostObject* const mine = simulated::objectOf(*this);
    const HostObject* const theirs = simulated::objectOf(other);
    if (mine == nullptr || theirs == nullptr)
        return false;
    const std::string* const myText = sim::textOf(mine);
    const std::string* const theirText = sim::textOf(theirs);
    return mine == theirs || (myText != nullptr && theirText != nullptr && *myText == *theirText);
}

bool NSObject::respondsToSelector(const char* selector) const noexcept
{
    const HostObject* const object = simulated::objectOf(*this);
    return object != nullptr && selector != nullptr && object->isa->find(sim::selector(selector)) != nullptr;
}

NSObject NSObject::valueForKey(const char* key) const noexcept
{
    HostObject* const object = simulated::objectOf(*this);
    if (object == nullptr || key == nullptr)
        return nullptr;
    sim::ClassTable& classes = *sim::Device::current()->classes;
    sim::Json scalar = classes.scalarForKey(object, key);
    if (scalar.is_discarded())
        return retained<NSObject>(classes.objectForKey(object, key));
    return simulated::create<NSObject, sim::Number>("NSNumber", std::move(scalar));
}

bool NSObject::boolValue() const noexcept
{
    return sim::booleanOf(valueOf(*this));
}

float NSObject::floatValue() const noexcept
{
    return static_cast<float>(doubleValue());
}

double NSObject::doubleValue() const noexcept
{
    return sim::numberOf(valueOf(*this));
}

std::int64_t NSObject::integerValue() const noexcept
{
    const sim::Json value = valueOf(*this);
    // Not by way of a double, which has no room for 64 bits.
    const auto* const whole = value.get_ptr<const sim::Json::number_integer_t*>();
    return whole != nullptr ? *whole : wrappedInteger(sim::numberOf(value));
}

std::uint16_t NSObject::unsignedShortValue() const noexcept
{
    return sim::unsignedShortOf(valueOf(*this));
}

void NSObject::performSelector(const char* selector, const NSObject& object, double delay) const noexcept
{
    HostObject* const target = simulated::objectOf(*this);
    if (target == nullptr || selector == nullptr)
        return;
    sim::Device::current()->runLoop->perform(target, sim::selector(selector), object.get(), delay);
}

void NSObject::cancelPreviousPerformRequests(
    const NSObject& target, const char* selector, const NSObject& object) noexcept
{
    sim::Device* const device = sim::Device::current();
    if (device != nullptr && selector != nullptr)
        device->runLoop->cancelPerforms(target.get(), sim::selector(selector), object.get());
}

} // namespace panotra
