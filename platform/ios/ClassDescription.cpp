/// Classes of ours in the Objective-C runtime: one instance variable a field, so that key-value reads see them as they
/// see those of any class, and the C++ block laid over the instance variables.
#include "platform/ClassDescription.h"

#include "platform/ios/Super.h"

#include <array>
#include <bit>
#include <cstring>

namespace panotra {

using namespace ios;

namespace {

struct RegisteredClass {
    const ClassDescription* description = nullptr;
    ::Class hostClass = nullptr;
    /// Of the block in an object, bytes.
    std::ptrdiff_t blockOffset = 0;

    void* block(id object) const { return reinterpret_cast<char*>(object) + blockOffset; }
    Class superclass() const { return fromRuntime(class_getSuperclass(hostClass)); }
};

/// The controller, the helper, the slider and the window, in the order of first use.
constinit std::array<RegisteredClass, 4> registeredClasses {};
constinit std::size_t registeredClassCount = 0;

std::span<const RegisteredClass> allRegistered()
{
    return { registeredClasses.data(), registeredClassCount };
}

/// The class of ours that `hostClass` is or derives from: the host may put a class of its own in front of ours.
const RegisteredClass* findRegistered(::Class hostClass)
{
    for (; hostClass != nullptr; hostClass = class_getSuperclass(hostClass)) {
        for (const RegisteredClass& registered : allRegistered()) {
            if (registered.hostClass == hostClass)
                return &registered;
        }
    }
    return nullptr;
}

/// An object of ours as it was found. The same few objects are asked for most of the time.
struct KnownObject {
    id object = nullptr;
    const ClassDescription* description = nullptr;
    void* block = nullptr;
};

/// Found by the object's place in memory, each in one of four rows that follow each other. So many that of the twelve
/// sliders, the controller and the helper hardly ever five meet.
constexpr std::size_t rowsTogether = 4;
constinit std::array<KnownObject, 32 * rowsTogether> knownObjects {};

std::size_t firstRowOf(id object)
{
    const auto address = reinterpret_cast<std::uintptr_t>(object) / alignof(std::max_align_t);
    return (address ^ address / knownObjects.size()) % knownObjects.size();
}

std::span<KnownObject> rowsOf(id object)
{
    return std::span(knownObjects).subspan(firstRowOf(object) / rowsTogether * rowsTogether, rowsTogether);
}

const RegisteredClass* findRegistered(id object)
{
    return object != nullptr ? findRegistered(object_getClass(toRuntime(object))) : nullptr;
}

/// `+allocWithZone:`: the block is constructed whoever allocates the object.
id allocateWithZone(id self, SEL, void* zone) noexcept
{
    const RegisteredClass* const registered = findRegistered(reinterpret_cast<::Class>(self));
    if (registered == nullptr)
        return nullptr;
    ::Class const metaclassOfSuper = object_getClass(toRuntime(objectOf(registered->superclass())));
    id const object = sendAs(fromRuntime(metaclassOfSuper), self, selectors::allocWithZone, zone);
    if (object != nullptr)
        shielded([=] { registered->description->construct(registered->block(object)); });
    return object;
}

/// `-dealloc`. The superclass's own may still send messages to the object: they find null fields.
void deallocate(id self, SEL) noexcept
{
    const RegisteredClass* const registered = findRegistered(self);
    if (registered == nullptr)
        return;
    void* const block = registered->block(self);
    shielded([=] { registered->description->destroy(self, block); });
    std::memset(block, 0, registered->description->size);
    sendAs(registered->superclass(), self, selectors::dealloc);
    for (KnownObject& known : rowsOf(self)) {
        if (known.object == self)
            known = {}; // another object may come to lie there
    }
}

void addMethod(::Class hostClass, const Method& method)
{
    class_addMethod(hostClass, sel_registerName(method.selector), method.implementation, method.encoding);
}

/// The block may end behind its last field, in padding that the compiler is free to write: an object must have room for
/// it. "?" is the code of an unknown type, which no key-value read touches.
void addTail(::Class added, const ClassDescription& description)
{
    const auto& fields = description.instanceVariables;
    const std::size_t end = fields.empty() ? 0 : fields.back().offset + fields.back().size;
    if (end < description.size)
        class_addIvar(added, "_tail", description.size - end, 0, "?");
}

void addMembers(::Class added, const ClassDescription& description)
{
    for (const InstanceVariable& variable : description.instanceVariables) {
        const auto log2Alignment = static_cast<std::uint8_t>(std::countr_zero(variable.alignment));
        class_addIvar(added, variable.name, variable.size, log2Alignment, variable.encoding);
    }
    addTail(added, description);
    for (const Method& method : description.methods)
        addMethod(added, method);
    addMethod(added, { "dealloc", "v@:", reinterpret_cast<IMP>(&deallocate) });

    ::Class const metaclass = object_getClass(reinterpret_cast<::id>(added));
    for (const Method& method : description.classMethods)
        addMethod(metaclass, method);
    addMethod(metaclass, { "allocWithZone:", "@@:^v", reinterpret_cast<IMP>(&allocateWithZone) });
}

/// The place of the block in an object. Negative where the runtime laid the instance variables out in another way than
/// the compiler laid out the block: such a class is of no use.
std::ptrdiff_t placeOfBlock(::Class added, const ClassDescription& description)
{
    const auto offsetOf = [added](const InstanceVariable& variable) {
        return ivar_getOffset(class_getInstanceVariable(added, variable.name));
    };
    if (description.instanceVariables.empty())
        return description.size == 0 ? 0 : -1;
    const InstanceVariable& first = description.instanceVariables.front();
    const std::ptrdiff_t place = offsetOf(first) - static_cast<std::ptrdiff_t>(first.offset);
    for (const InstanceVariable& variable : description.instanceVariables) {
        if (offsetOf(variable) != place + static_cast<std::ptrdiff_t>(variable.offset))
            return -1;
    }
    return static_cast<std::size_t>(place) + description.size <= class_getInstanceSize(added) ? place : -1;
}

/// A name can be registered once a process. Where another copy of the library was first, this one does without: the
/// methods of that class are the other copy's, and so are its objects.
const RegisteredClass* registerClass(const ClassDescription& description)
{
    ::Class const superclass = ::objc_getClass(description.superclass);
    if (superclass == nullptr || registeredClassCount == registeredClasses.size())
        return nullptr;
    ::Class const added = objc_allocateClassPair(superclass, description.name, 0);
    if (added == nullptr)
        return nullptr;
    addMembers(added, description);
    objc_registerClassPair(added);
    const std::ptrdiff_t place = placeOfBlock(added, description);
    if (place < 0)
        return nullptr;
    RegisteredClass& registered = registeredClasses[registeredClassCount++];
    registered = { &description, added, place };
    return &registered;
}

const RegisteredClass* findOrRegister(const ClassDescription& description)
{
    for (const RegisteredClass& registered : allRegistered()) {
        if (registered.description == &description)
            return &registered;
    }
    return registerClass(description);
}

[[gnu::noinline]] void* findBlock(id object, const ClassDescription& description)
{
    KnownObject* place = &knownObjects[firstRowOf(object)];
    for (KnownObject& known : rowsOf(object)) {
        if (known.object == object && known.description == &description)
            return known.block;
        if (known.object == nullptr && place->object != nullptr)
            place = &known;
    }
    const RegisteredClass* const registered = findRegistered(object);
    if (registered == nullptr || registered->description != &description)
        return nullptr;
    *place = { object, &description, registered->block(object) };
    return place->block;
}

} // namespace

id allocate(const ClassDescription& description) noexcept
{
    const RegisteredClass* const registered = findOrRegister(description);
    return registered != nullptr ? send(objectOf(fromRuntime(registered->hostClass)), selectors::alloc) : nullptr;
}

Class ios::superclassOf(id self, const ClassDescription& description) noexcept
{
    const RegisteredClass* const registered = findRegistered(self);
    return registered != nullptr && registered->description == &description ? registered->superclass() : nullptr;
}

/// By the platform's rule an initialiser takes over a count of its receiver and answers one: of the receiver, of
/// another object, or of none. Here it is given a count to take, and what it answers is left to the pool.
id superInit(id self, const ClassDescription& description) noexcept
{
    Class const superclass = superclassOf(self, description);
    const SEL initializer = selectors::init.get();
    if (superclass == nullptr || !instancesAnswer(superclass, initializer))
        return nullptr;
    retain(self);
    id const answer = deliverAs<id>(superclass, self, initializer);
    if (answer != self)
        return autorelease(answer);
    release(self);
    return self;
}

void* instanceVariables(id object, const ClassDescription& description) noexcept
{
    const KnownObject& known = knownObjects[firstRowOf(object)];
    return known.object == object && known.description == &description ? known.block : findBlock(object, description);
}

} // namespace panotra
