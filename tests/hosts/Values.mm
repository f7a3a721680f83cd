/// Copies of values.
#include "tests/hosts/Values.h"

#include "simulator/device/ClassTable.h"
#include "simulator/device/Values.h"
#include "tests/hosts/Peers.h"

#include <nlohmann/json.hpp>

#include <utility>

namespace panotra::hosts {

namespace {

/// `NSString` takes bytes; a text may hold a zero character.
NSString* stringOf(const std::string& text)
{
    return [[[NSString alloc] initWithBytes:text.data() length:text.size() encoding:NSUTF8StringEncoding] autorelease];
}

id numberOf(const sim::Json& json)
{
    if (json.is_boolean())
        return [NSNumber numberWithBool:json.get<bool>()];
    if (json.is_number_unsigned())
        return [NSNumber numberWithUnsignedLongLong:json.get<std::uint64_t>()];
    if (json.is_number_integer())
        return [NSNumber numberWithLongLong:json.get<std::int64_t>()];
    return [NSNumber numberWithDouble:json.get<double>()];
}

sim::Json jsonOf(NSNumber* number)
{
    switch (*[number objCType]) {
    case 'f':
    case 'd':
        return [number doubleValue];
    case 'B':
        return [number boolValue] != NO;
    case 'Q':
        return static_cast<std::uint64_t>([number unsignedLongLongValue]);
    default:
        return static_cast<std::int64_t>([number longLongValue]);
    }
}

id dictionaryOf(const sim::Dictionary& dictionary)
{
    NSMutableDictionary* const copy = [NSMutableDictionary dictionary];
    for (const auto& [key, value] : dictionary.entries)
        [copy setObject:hostObjectFor(value) forKey:stringOf(key)];
    return copy;
}

/// Keys that are no strings are left behind: the device has no such keys.
void copyEntries(sim::Dictionary& copy, NSDictionary* dictionary)
{
    NSEnumerator* const keys = [dictionary keyEnumerator];
    while (const id key = [keys nextObject]) {
        const auto name = textOf(key);
        if (!name)
            continue;
        HostObject* const value = deviceObjectFor([dictionary objectForKey:key]);
        sim::retain(value);
        copy.adopt(*name, value);
    }
}

template <typename Kind, typename... Arguments> Kind* autoreleased(const char* className, Arguments&&... arguments)
{
    sim::ClassTable& classes = *device().classes;
    auto* const object = classes.make<Kind>(className, std::forward<Arguments>(arguments)...);
    classes.autorelease(object);
    return object;
}

} // namespace

id valueFor(HostObject* object)
{
    if (const auto* const string = dynamic_cast<sim::String*>(object))
        return stringOf(string->text);
    if (const auto* const number = dynamic_cast<sim::Number*>(object))
        return numberOf(number->value);
    if (const auto* const dictionary = dynamic_cast<sim::Dictionary*>(object))
        return dictionaryOf(*dictionary);
    if (const auto* const data = dynamic_cast<sim::Data*>(object))
        return [NSData dataWithBytes:data->bytes.data() length:data->bytes.size()];
    return nil;
}

HostObject* copyOfValue(id value)
{
    if (const auto text = textOf(value))
        return autoreleased<sim::String>("NSString", *text);
    if ([value isKindOfClass:[NSNumber class]])
        return autoreleased<sim::Number>("NSNumber", jsonOf(value));
    if ([value isKindOfClass:[NSData class]])
        return autoreleased<sim::Data>("NSData", std::string(static_cast<const char*>([value bytes]), [value length]));
    if ([value isKindOfClass:[NSDictionary class]]) {
        auto* const copy = autoreleased<sim::Dictionary>("NSDictionary");
        copyEntries(*copy, value);
        return copy;
    }
    return autoreleased<HostObject>("NSObject");
}

id valueOfJson(const sim::Json& json)
{
    if (json.is_string())
        return stringOf(json.get<std::string>());
    return json.is_number() || json.is_boolean() ? numberOf(json) : static_cast<id>([NSArray array]);
}

std::optional<std::string> textOf(id string)
{
    if (![string isKindOfClass:[NSString class]])
        return std::nullopt;
    const char* const text = [string UTF8String];
    if (text == nullptr)
        return std::nullopt;
    return std::string(text, [string lengthOfBytesUsingEncoding:NSUTF8StringEncoding]);
}

} // namespace panotra::hosts
