/// The two objects of one thing.
#include "tests/hosts/Peers.h"

#include "simulator/device/Values.h"
#include "tests/hosts/DeviceCalls.h"
#include "tests/hosts/Values.h"
#include "tests/hosts/classes/SystemClasses.h"

#include <objc/runtime.h>

#include <cstdlib>
#include <mutex>
#include <shared_mutex>
#include <unordered_map>

namespace panotra::hosts {

namespace {

/// Any thread may count an object, and looks its peer up to do so.
class Peers {
public:
    HostObject* find(void* hostObject) const
    {
        const std::shared_lock lock(m_lock);
        const auto place = m_all.find(hostObject);
        return place == m_all.end() ? nullptr : place->second;
    }
    void set(void* hostObject, HostObject* peer)
    {
        const std::unique_lock lock(m_lock);
        m_all[hostObject] = peer;
    }
    void erase(void* hostObject)
    {
        const std::unique_lock lock(m_lock);
        m_all.erase(hostObject);
    }

private:
    mutable std::shared_mutex m_lock;
    std::unordered_map<void*, HostObject*> m_all;
};

Peers& peers()
{
    static Peers all;
    return all;
}

using Fields = std::shared_ptr<std::byte[]>;

void endHostObject(id object)
{
    [object dealloc];
    peers().erase(object);
}

/// With the process its memory goes: no object runs its dealloc then.
void hostObjectEnds(std::byte* object)
{
    const auto hostObject = reinterpret_cast<id>(object);
    if (sim::Device::current() != nullptr && peers().find(hostObject) != nullptr)
        endHostObject(hostObject);
}

/// The dealloc of a class of the library's comes before that of the device's own object: it is the derived one.
void endRegisteredObject(HostObject* object, void* hostObject)
{
    endHostObject(static_cast<id>(hostObject));
    object->instanceVariables.reset();
}

std::set<std::string>& initialized()
{
    static std::set<std::string> all;
    return all;
}

HostObject* peerHeldInField(void* held)
{
    return peerOf(static_cast<id>(held));
}

void addFields(HostClass& added, Class hostClass)
{
    unsigned count = 0;
    Ivar* const variables = class_copyIvarList(hostClass, &count);
    for (unsigned i = 0; i < count; ++i)
        added.fields.push_back({ ivar_getName(variables[i]), ivar_getTypeEncoding(variables[i])[0],
            static_cast<std::size_t>(ivar_getOffset(variables[i])), nullptr, peerHeldInField });
    std::free(variables);
}

void addMethods(HostClass& added, Class hostClass)
{
    unsigned count = 0;
    Method* const methods = class_copyMethodList(hostClass, &count);
    for (unsigned i = 0; i < count; ++i) {
        const auto* const name = sim::selector(sel_getName(method_getName(methods[i])));
        if (const auto call = messageOfType(method_getTypeEncoding(methods[i])))
            added.methods[name] = call;
    }
    std::free(methods);
}

/// The library's own `+allocWithZone:` by class, for classes whose superclass makes no peers.
std::unordered_map<void*, IMP>& allocators()
{
    static std::unordered_map<void*, IMP> all;
    return all;
}

id allocateWithPeer(Class self, SEL selector, NSZone* zone)
{
    Class registered = self;
    while (!allocators().contains(registered))
        registered = class_getSuperclass(registered);
    const auto allocate = reinterpret_cast<id (*)(Class, SEL, NSZone*)>(allocators().at(registered));
    const id object = allocate(self, selector, zone);
    if (object != nil)
        attachNewPeer(object);
    return object;
}

void copyMethod(Class hostClass, SEL selector)
{
    const Method method = class_getInstanceMethod([DeviceObject class], selector);
    class_addMethod(hostClass, selector, method_getImplementation(method), method_getTypeEncoding(method));
}

/// What DeviceObject does for its subclasses, for a class that is none.
void giveObjectsPeers(Class hostClass)
{
    for (const SEL selector : { @selector(retain), @selector(release), @selector(autorelease), @selector(retainCount) })
        copyMethod(hostClass, selector);
    const Class metaclass = object_getClass(hostClass);
    const SEL selector = @selector(allocWithZone:);
    const Method method = class_getInstanceMethod(metaclass, selector);
    allocators()[hostClass] = method_getImplementation(method);
    class_replaceMethod(metaclass, selector, reinterpret_cast<IMP>(allocateWithPeer), method_getTypeEncoding(method));
}

} // namespace

const std::set<std::string>& initializedClasses()
{
    return initialized();
}

HostObject* peerOf(id object)
{
    return peers().find(object);
}

id hostObjectFor(HostObject* object)
{
    if (object == nullptr)
        return nil;
    if (const id value = valueFor(object))
        return value;
    if (object->instanceVariables == nullptr) {
        Class hostClass = classNamed(object->isa->name.c_str());
        if (hostClass == Nil || hostClass == [NSObject class])
            hostClass = [DeviceObject class];
        attachPeer(NSAllocateObject(hostClass, 0, nullptr), object);
    }
    return reinterpret_cast<id>(object->instanceVariables.get());
}

HostObject* deviceObjectFor(id object)
{
    if (object == nil)
        return nullptr;
    HostObject* const peer = peerOf(object);
    return peer != nullptr ? peer : copyOfValue(object);
}

void attachPeer(id hostObject, HostObject* object)
{
    peers().set(hostObject, object);
    object->instanceVariables = Fields(reinterpret_cast<std::byte*>(hostObject), hostObjectEnds);
}

void attachNewPeer(id hostObject)
{
    attachPeer(hostObject, device().classes->instantiate(deviceClassOf(object_getClass(hostObject))));
}

id autoreleasedHostObject(HostObject* counted)
{
    return hostObjectFor(device().classes->autorelease(counted));
}

HostClass& deviceClassOf(Class hostClass)
{
    for (; hostClass != Nil; hostClass = class_getSuperclass(hostClass)) {
        if (HostClass* const known = device().classes->find(nameOfClass(hostClass)))
            return *known;
    }
    return device().classes->platformClass("NSObject");
}

void addRegisteredClass(Class hostClass)
{
    HostClass& superclass = deviceClassOf(class_getSuperclass(hostClass));
    HostClass& added = device().classes->add(class_getName(hostClass), superclass.name);
    added.isRegistered = true;
    added.construct = [](void*) {
    };
    added.destroy = endRegisteredObject;
    addFields(added, hostClass);
    addMethods(added, hostClass);
    if (!class_respondsToSelector(object_getClass(hostClass), @selector(makesPeers)))
        giveObjectsPeers(hostClass);
}

} // namespace panotra::hosts

using namespace panotra;

@implementation DeviceObject

/// A class that has none inherits it, and is sent it all the same.
+ (void)initialize
{
    hosts::initialized().insert(class_getName(self));
}

/// Only asked whether it is there.
+ (void)makesPeers
{
}

- (id)retain
{
    sim::retain(hosts::peerOf(self));
    return self;
}

- (oneway void)release
{
    if (HostObject* const peer = hosts::peerOf(self))
        sim::release(peer);
    else
        NSDeallocateObject(self); // its initialiser was never called
}

- (id)autorelease
{
    if (HostObject* const peer = hosts::peerOf(self))
        hosts::device().classes->autorelease(peer);
    return self;
}

- (NSUInteger)retainCount
{
    const HostObject* const peer = hosts::peerOf(self);
    return peer == nullptr ? 1 : peer->references;
}

@end
