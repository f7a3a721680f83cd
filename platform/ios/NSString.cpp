/// Strings and the small values that come and go as objects.
#include "platform/NSString.h"

#include "platform/ios/Classes.h"
#include "platform/ios/Send.h"

#include <array>
#include <cstdint>

namespace panotra {

using namespace ios;

namespace {

/// The platform's number of the encoding.
constexpr NSUInteger NSUTF8StringEncoding = 4;

/// The string of a text of ours, kept for the life of the process.
struct Constant {
    const char* text = nullptr;
    ProcessReference<NSString> string;
};

/// Found by the place of the text. Several times as many as there are texts, so that two seldom meet.
constinit std::array<Constant, 512> constants {};

/// Where the text's string is looked for first: by the middle of the product, to which all of the address contributes.
std::size_t firstPlaceOf(const char* text)
{
    constexpr std::uint32_t spread = 2654435769; // the golden section of all there are
    return (static_cast<std::uint32_t>(reinterpret_cast<std::uintptr_t>(text)) * spread >> 16) % constants.size();
}

/// The string from where it is kept. One that is not there is made, and kept where there is room.
[[gnu::noinline]] NSString findConstant(const char* text) noexcept
{
    for (std::size_t step = 0; step < constants.size(); ++step) {
        Constant& constant = constants[(firstPlaceOf(text) + step) % constants.size()];
        if (constant.text == nullptr)
            constant.text = text;
        if (constant.text != text)
            continue;
        if (!constant.string)
            constant.string.set(NSString::stringWithUTF8String(text));
        return constant.string.get();
    }
    return NSString::stringWithUTF8String(text);
}

} // namespace

/// The initialiser, not the class method of this name: nothing is left to a pool. It raises for a null text.
NSString NSString::stringWithUTF8String(const char* text) noexcept
{
    return text != nullptr ? create<NSString>(classes::NSString, selectors::initWithUTF8String, text) : nullptr;
}

/// Made once: the second time the string is there.
NSString NSString::constant(const char* text) noexcept
{
    if (text == nullptr)
        return nullptr;
    const Constant& likely = constants[firstPlaceOf(text)];
    return likely.text == text && likely.string ? likely.string.get() : findConstant(text);
}

NSString NSString::checked(NSObject object) noexcept
{
    return isKindOf(object.get(), classes::NSString) ? adopt<NSString>(object.leak()) : nullptr;
}

/// With the string's own length, for a string may hold a zero character. A string that has no UTF-8 form is empty.
std::string_view NSString::view() const noexcept
{
    const char* const text = send(get(), selectors::UTF8String);
    if (text == nullptr)
        return {};
    return { text,
        deliver<NSUInteger, NSUInteger>(get(), selectors::lengthOfBytesUsingEncoding.get(), NSUTF8StringEncoding) };
}

NSNumber NSNumber::numberWithFloat(float value) noexcept
{
    return create<NSNumber>(classes::NSNumber, selectors::initWithFloat, value);
}

NSDictionary NSDictionary::checked(NSObject object) noexcept
{
    return isKindOf(object.get(), classes::NSDictionary) ? adopt<NSDictionary>(object.leak()) : nullptr;
}

NSObject NSDictionary::objectForKey(const NSString& key) const noexcept
{
    if (get() == nullptr || !key)
        return nullptr;
    return retained<NSObject>(deliver<id, id>(get(), selectors::objectForKey.get(), key.get()));
}

} // namespace panotra
