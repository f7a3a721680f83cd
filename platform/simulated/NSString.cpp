/// Strings, numbers and dictionaries.
#include "platform/NSString.h"

#include "platform/simulated/Host.h"

namespace panotra {

NSString NSString::stringWithUTF8String(const char* text) noexcept
{
    return text == nullptr ? NSString() : simulated::create<NSString, sim::String>("NSString", text);
}

NSString NSString::checked(const NSObject& object) noexcept
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

NSDictionary NSDictionary::checked(const NSObject& object) noexcept
{
    return retained<NSDictionary>(simulated::objectOf<sim::Dictionary>(object));
}

NSObject NSDictionary::objectForKey(const char* key) const noexcept
{
    const auto* const dictionary = simulated::objectOf<sim::Dictionary>(*this);
    return dictionary == nullptr || key == nullptr ? NSObject() : retained<NSObject>(dictionary->objectForKey(key));
}

} // namespace panotra
