/// Strings and the small values that come and go as objects.
#include "platform/NSString.h"

#include "platform/ios/Classes.h"
#include "platform/ios/Send.h"

namespace panotra {

using namespace ios;

namespace {

/// The platform's number of the encoding.
constexpr NSUInteger NSUTF8StringEncoding = 4;

} // namespace

/// The initialiser, not the class method of this name: nothing is left to a pool. It raises for a null text.
NSString NSString::stringWithUTF8String(const char* text) noexcept
{
    return text != nullptr ? create<NSString>(classes::NSString, selectors::initWithUTF8String, text) : nullptr;
}

NSString NSString::checked(const NSObject& object) noexcept
{
    return isKindOf(object.get(), classes::NSString) ? retained<NSString>(object.get()) : nullptr;
}

/// With the string's own length, for a string may hold a zero character. A string that has no UTF-8 form is empty.
std::string_view NSString::view() const noexcept
{
    const char* const text = send(get(), selectors::UTF8String);
    if (text == nullptr)
        return {};
    return { text, send(get(), selectors::lengthOfBytesUsingEncoding, NSUTF8StringEncoding) };
}

NSNumber NSNumber::numberWithFloat(float value) noexcept
{
    return create<NSNumber>(classes::NSNumber, selectors::initWithFloat, value);
}

NSDictionary NSDictionary::checked(const NSObject& object) noexcept
{
    return isKindOf(object.get(), classes::NSDictionary) ? retained<NSDictionary>(object.get()) : nullptr;
}

NSObject NSDictionary::objectForKey(const char* key) const noexcept
{
    if (get() == nullptr)
        return nullptr;
    return ask<NSObject>(get(), selectors::objectForKey, NSString::stringWithUTF8String(key).get());
}

} // namespace panotra
