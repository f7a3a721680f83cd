/// The small objects that come and go between programs and the host.
#include "simulator/device/Values.h"

#include "simulator/device/ClassTable.h"

namespace panotra::sim {

const std::string* textOf(const HostObject* object)
{
    const auto* const string = dynamic_cast<const String*>(object);
    return string == nullptr ? nullptr : &string->text;
}

Dictionary::~Dictionary()
{
    for (const auto& [key, value] : entries)
        release(value);
}

Set::~Set()
{
    for (HostObject* const member : members)
        release(member);
}

void Set::add(HostObject* member)
{
    retain(member);
    members.push_back(member);
}

HostObject* Dictionary::objectForKey(const std::string& key) const
{
    const auto entry = entries.find(key);
    return entry == entries.end() ? nullptr : entry->second;
}

String* autoreleasedString(const std::string& text)
{
    ClassTable& classes = *Device::current()->classes;
    auto* const string = classes.make<String>("NSString", text);
    classes.autorelease(string);
    return string;
}

} // namespace panotra::sim
