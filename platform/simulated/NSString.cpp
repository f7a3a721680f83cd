/// Strings, numbers and dictionaries.
#include "platform/NSString.h"

#include "platform/simulated/Host.h"

namespace panotra {

NSString NSString::stringWithUTF8String(const char* text) noexcept
{
    return text == nullptr ? NSString() : simulated::create<NSString, sim::String>("NSString", text);
}

NSString NSString::constant(const char* text) noexcept
{
    return stringWithUTF8String(text);
}

NSString NSString::checked(NSObject object) noexcept
{
    return retained<NSString>(simulated::objectOf<sim::String>(object));
}

std::string_view NSString::view() const noexcept
{
    const std::string* const text = sim::textOf(simulated::objectOf(*this));
    return text == nullptr ? std::string_view() : std::string_view(*text);
}

NSNumber NSNumber::numberWithFloat(float value) noexcept
{
    return simulated::create<NSNumber, sim::Number>("NSNumber", static_cast<double>(value));
}

NSDictionary NSDictionary::checked(NSObject object) noexcept
{
    return retained<NSDictionary>(simulated::objectOf<sim::Dictionary>(object));
}

NSObject NSDictionary::objectForKey(const NSString& key) const noexcept
{
    const auto* const dictionary = simulated::objectOf<sim::Dictionary>(*this);
    const std::string* const name = sim::textOf(simulated::objectOf(key));
    return dictionary == nullptr || name == nullptr ? NSObject() : retained<NSObject>(dictionary->objectForKey(*name));
}

} // namespace panotra
