/// Classes by name, the life of objects, and their fields by key.
#include "simulator/device/ClassTable.h"

#include "simulator/device/EventFields.h"
#include "simulator/device/PlatformClasses.h"
#include "simulator/device/Saturated.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <atomic>
#include <cassert>
#include <cstring>
#include <functional>
#include <map>
#include <unordered_set>

namespace panotra::sim {

struct ClassTable::Implementation {
    explicit Implementation(Device& owner)
        : device(owner)
    {
    }

    Device& device;
    std::map<std::string, HostClass, std::less<>> classes;
    std::unordered_set<HostObject*> living;
    std::vector<HostObject*> registered; ///< the living objects with fields of their own, oldest first
    std::vector<HostObject*> autoreleased;
};

namespace {

template <typename Value> Value read(const HostObject& object, const HostField& field)
{
    Value value;
    std::memcpy(&value, object.instanceVariables.get() + field.offset, sizeof value);
    return value;
}

/// What an object field holds. Borrowed.
HostObject* readObject(const HostObject& object, const HostField& field)
{
    return field.resolve != nullptr ? field.resolve(read<void*>(object, field)) : read<HostObject*>(object, field);
}

const HostField* findField(const HostObject* object, std::string_view key)
{
    if (object == nullptr)
        return nullptr;
    const auto& fields = object->isa->fields;
    const auto field = std::ranges::find(fields, key, &HostField::name);
    return field == fields.end() ? nullptr : &*field;
}

void nameObjectsHeldBy(const HostObject& holder)
{
    for (const HostField& field : holder.isa->fields) {
        if (field.encoding != '@')
            continue;
        HostObject* const held = readObject(holder, field);
        if (held != nullptr && held->name.empty())
            held->name = field.name;
    }
}

} // namespace

ClassTable::ClassTable(Device& device)
    : m_implementation(std::make_unique<Implementation>(device))
{
    addPlatformClasses(*this);
}

ClassTable::~ClassTable()
{
    for (HostObject* const object : m_implementation->living)
        delete object;
}

HostClass* ClassTable::find(std::string_view name)
{
    const auto place = m_implementation->classes.find(name);
    return place == m_implementation->classes.end() || !place->second.present ? nullptr : &place->second;
}

HostClass& ClassTable::platformClass(std::string_view name)
{
    const auto place = m_implementation->classes.find(name);
    assert(place != m_implementation->classes.end());
    return place->second;
}

void ClassTable::setPresent(const std::string& name, bool present)
{
    const auto [place, isNew] = m_implementation->classes.try_emplace(name);
    if (isNew) {
        place->second.name = name;
        place->second.superclass = &platformClass("NSObject");
    }
    place->second.present = present;
}

HostClass& ClassTable::add(const std::string& name, const std::string& superclass)
{
    const auto parent = m_implementation->classes.find(superclass);
    HostClass& added = m_implementation->classes[name];
    added.name = name;
    added.superclass = parent == m_implementation->classes.end() ? nullptr : &parent->second;
    added.present = true;
    return added;
}

bool ClassTable::replace(HostClass& hostClass, const HostSelector* selector, HostClass::Implementation replacement,
    HostClass::Implementation* previous)
{
    const HostClass::Implementation replaced = hostClass.find(selector);
    if (replaced == nullptr)
        return false;
    if (previous != nullptr)
        *previous = replaced;
    hostClass.methods[selector] = replacement;
    m_implementation->device.trace(
        "hook", [&](EventFields& fields) { fields.add("class", hostClass.name, "method", selector->name); });
    return true;
}

HostObject* ClassTable::instantiate(HostClass& isa)
{
    const HostClass* maker = &isa;
    while (maker != nullptr && maker->make == nullptr)
        maker = maker->superclass;
    HostObject* const object = maker == nullptr ? new HostObject : maker->make();
    adopt(object, isa);
    if (isa.isRegistered) {
        object->instanceVariables = std::make_unique<std::byte[]>(isa.instanceSize);
        isa.construct(object->instanceVariables.get());
        m_implementation->registered.push_back(object);
    }
    return object;
}

void ClassTable::adopt(HostObject* object, HostClass& isa)
{
    object->isa = &isa;
    m_implementation->living.insert(object);
}

void ClassTable::retain(HostObject* object)
{
    if (object != nullptr)
        std::atomic_ref(object->references).fetch_add(1, std::memory_order_relaxed);
}

void ClassTable::release(HostObject* object)
{
    if (object == nullptr || object->isDeallocating
        || std::atomic_ref(object->references).fetch_sub(1, std::memory_order_acq_rel) > 1)
        return;
    object->isDeallocating = true;
    const HostClass& isa = *object->isa;
    if (isa.isRegistered) {
        // The last look at its fields: while the block is being destroyed there is nothing to be read in it.
        nameObjectsHeldBy(*object);
        std::erase(m_implementation->registered, object);
        isa.destroy(object, object->instanceVariables.get());
    }
    m_implementation->living.erase(object);
    delete object;
}

HostObject* ClassTable::autorelease(HostObject* object)
{
    if (object != nullptr && !object->isDeallocating)
        m_implementation->autoreleased.push_back(object);
    return object;
}

std::size_t ClassTable::pushAutoreleasePool() const
{
    return m_implementation->autoreleased.size();
}

void ClassTable::popAutoreleasePool(std::size_t mark)
{
    // One by one: a dealloc may fill the pool again.
    std::vector<HostObject*>& pool = m_implementation->autoreleased;
    while (pool.size() > mark) {
        HostObject* const object = pool.back();
        pool.pop_back();
        release(object);
    }
}

std::size_t ClassTable::liveObjects() const
{
    return m_implementation->living.size();
}

std::size_t ClassTable::liveObjects(std::string_view className) const
{
    return static_cast<std::size_t>(std::ranges::count_if(m_implementation->living,
        [className](const HostObject* object) { return object->isa->inheritsFrom(className); }));
}

HostObject* ClassTable::anyInstance(std::string_view className)
{
    const auto place = std::ranges::find_if(
        m_implementation->living, [className](const HostObject* object) { return object->isa->name == className; });
    return place == m_implementation->living.end() ? nullptr : *place;
}

HostObject* ClassTable::heldInField(std::string_view field) const
{
    for (HostObject* const holder : m_implementation->registered) {
        if (HostObject* const held = objectForKey(holder, field))
            return held;
    }
    return nullptr;
}

void ClassTable::nameHeldObjects()
{
    for (const HostObject* const holder : m_implementation->registered)
        nameObjectsHeldBy(*holder);
}

HostObject* ClassTable::objectForKey(HostObject* object, std::string_view key) const
{
    const HostField* const field = findField(object, key);
    return field != nullptr && field->encoding == '@' ? readObject(*object, *field) : nullptr;
}

Json ClassTable::scalarForKey(HostObject* object, std::string_view key) const
{
    const HostField* const field = findField(object, key);
    if (field == nullptr)
        return Json::value_t::discarded;
    switch (field->encoding) {
    case 'B':
        return field->read != nullptr ? field->read() != 0 : read<bool>(*object, *field);
    case 'i':
        return saturated<std::int32_t>(field->read());
    case 'Q':
        return static_cast<std::uint64_t>(field->read());
    case 'q':
        return field->read != nullptr ? field->read() : read<std::int64_t>(*object, *field);
    case 'S':
        return read<std::uint16_t>(*object, *field);
    case 'f':
        return static_cast<double>(read<float>(*object, *field));
    case 'd':
        return read<double>(*object, *field);
    default:
        return Json::value_t::discarded;
    }
}

} // namespace panotra::sim
