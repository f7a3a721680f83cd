/// The platform's Objective-C runtime over the one at hand: what that has is called, what it lacks is made of it.
#include "tests/hosts/Crossings.h"
#include "tests/hosts/Imports.h"
#include "tests/hosts/Peers.h"
#include "tests/hosts/Raising.h"
#include "tests/hosts/classes/SystemClasses.h"

#include <objc/message.h>
#include <objc/runtime.h>

#include <cstdlib>
#include <map>
#include <string>

using namespace panotra;
using hosts::noteCrossing;

namespace {

std::string nameOfMessage(Class receiverClass, SEL selector)
{
    return (class_isMetaClass(receiverClass) ? "+[" : "-[") + std::string(hosts::nameOfClass(receiverClass)) + ' '
        + sel_getName(selector) + ']';
}

std::map<std::string, Class, std::less<>>& emptyClasses()
{
    static std::map<std::string, Class, std::less<>> all;
    return all;
}

Class newClass(const char* name, Class superclass)
{
    const Class made = objc_allocateClassPair(superclass, name, 0);
    objc_registerClassPair(made);
    return made;
}

/// The platform asks a class to make a method that is missing. Whatever it answers: it was sent a message.
void askToMakeMethod(Class hostClass)
{
    if (hostClass != Nil && !class_isMetaClass(hostClass))
        [hostClass self];
}

/// A pool of the device's and one of Foundation's, pushed together.
struct Pool {
    NSAutoreleasePool* foundation;
    std::size_t device;
};

} // namespace

void hosts::emptyClass(const char* name)
{
    emptyClasses()[name] = newClass((std::string("Empty") + name).c_str(), class_getSuperclass(objc_lookUpClass(name)));
}

extern "C" {

void* __wrap_malloc(std::size_t size)
{
    noteCrossing("malloc");
    return std::malloc(size);
}

IMP panotraFindMethod(id receiver, SEL selector)
{
    hosts::tellListener(receiver, sel_getName(selector));
    if (hosts::areCrossingsRecorded() || hosts::mayRaise()) {
        const std::string name = nameOfMessage(object_getClass(receiver), selector);
        noteCrossing(name);
        if (const IMP raising = hosts::raisingInsteadOf(name))
            return raising;
    }
    return objc_msg_lookup(receiver, selector);
}

// Classes. What the device's process lacks cannot be found, and what it has of some other program is made.

Class __wrap_objc_getClass(const char* name)
{
    noteCrossing("objc_getClass");
    if (name == nullptr || hosts::device().classes->find(name) == nullptr)
        return Nil;
    if (const auto empty = emptyClasses().find(name); empty != emptyClasses().end())
        return empty->second;
    const Class found = hosts::classNamed(name);
    return found != Nil ? found : newClass(name, [NSObject class]);
}

Class __wrap_object_getClass(id object)
{
    noteCrossing("object_getClass");
    return object_getClass(object);
}

Class __wrap_class_getSuperclass(Class hostClass)
{
    noteCrossing("class_getSuperclass");
    return class_getSuperclass(hostClass);
}

std::size_t __wrap_class_getInstanceSize(Class hostClass)
{
    noteCrossing("class_getInstanceSize");
    return class_getInstanceSize(hostClass);
}

// Methods.

SEL __wrap_sel_registerName(const char* name)
{
    noteCrossing("sel_registerName");
    return sel_registerName(name);
}

BOOL __wrap_class_respondsToSelector(Class hostClass, SEL selector)
{
    noteCrossing("class_respondsToSelector");
    hosts::maybeRaise("class_respondsToSelector");
    const BOOL responds = class_respondsToSelector(hostClass, selector);
    if (responds == NO)
        askToMakeMethod(hostClass);
    return responds;
}

IMP __wrap_class_getMethodImplementation(Class hostClass, SEL selector)
{
    noteCrossing("class_getMethodImplementation");
    if (hosts::mayRaise()) {
        if (const IMP raising = hosts::raisingInsteadOf("super " + nameOfMessage(hostClass, selector)))
            return raising;
    }
    return class_getMethodImplementation(hostClass, selector);
}

Method __wrap_class_getInstanceMethod(Class hostClass, SEL selector)
{
    noteCrossing("class_getInstanceMethod");
    hosts::maybeRaise("class_getInstanceMethod");
    const Method found = class_getInstanceMethod(hostClass, selector);
    if (found == nullptr)
        askToMakeMethod(hostClass);
    return found;
}

Method* __wrap_class_copyMethodList(Class hostClass, unsigned* count)
{
    noteCrossing("class_copyMethodList");
    return class_copyMethodList(hostClass, count);
}

/// A selector of this runtime also has the types of the method that it was read from; a name alone is what compares.
SEL __wrap_method_getName(Method method)
{
    noteCrossing("method_getName");
    return sel_registerName(sel_getName(method_getName(method)));
}

IMP __wrap_method_getImplementation(Method method)
{
    noteCrossing("method_getImplementation");
    return method_getImplementation(method);
}

unsigned __wrap_method_getNumberOfArguments(Method method)
{
    noteCrossing("method_getNumberOfArguments");
    return method_getNumberOfArguments(method);
}

const char* __wrap_method_getTypeEncoding(Method method)
{
    noteCrossing("method_getTypeEncoding");
    return method_getTypeEncoding(method);
}

// Instance variables.

Ivar __wrap_class_getInstanceVariable(Class hostClass, const char* name)
{
    noteCrossing("class_getInstanceVariable");
    return class_getInstanceVariable(hostClass, name);
}

const char* __wrap_ivar_getTypeEncoding(Ivar variable)
{
    noteCrossing("ivar_getTypeEncoding");
    return ivar_getTypeEncoding(variable);
}

std::ptrdiff_t __wrap_ivar_getOffset(Ivar variable)
{
    noteCrossing("ivar_getOffset");
    return ivar_getOffset(variable);
}

// Classes of the library's own.

Class __wrap_objc_allocateClassPair(Class superclass, const char* name, std::size_t extraBytes)
{
    noteCrossing("objc_allocateClassPair");
    return objc_allocateClassPair(superclass, name, extraBytes);
}

void __wrap_objc_registerClassPair(Class hostClass)
{
    noteCrossing("objc_registerClassPair");
    objc_registerClassPair(hostClass);
    hosts::addRegisteredClass(hostClass);
}

BOOL __wrap_class_addIvar(
    Class hostClass, const char* name, std::size_t size, std::uint8_t log2Alignment, const char* types)
{
    noteCrossing("class_addIvar");
    return class_addIvar(hostClass, name, size, log2Alignment, types);
}

BOOL __wrap_class_addMethod(Class hostClass, SEL selector, IMP implementation, const char* types)
{
    noteCrossing("class_addMethod");
    return class_addMethod(hostClass, selector, implementation, types);
}

// Counting, and pools.

id __wrap_objc_retain(id object)
{
    noteCrossing("objc_retain");
    return [object retain];
}

void __wrap_objc_release(id object)
{
    noteCrossing("objc_release");
    hosts::tellListener(object, "release");
    [object release];
    hosts::maybeRaise("objc_release");
}

id __wrap_objc_autorelease(id object)
{
    noteCrossing("objc_autorelease");
    return [object autorelease];
}

void* __wrap_objc_autoreleasePoolPush()
{
    noteCrossing("objc_autoreleasePoolPush");
    return new Pool { [NSAutoreleasePool new], hosts::device().classes->pushAutoreleasePool() };
}

void __wrap_objc_autoreleasePoolPop(void* pushed)
{
    noteCrossing("objc_autoreleasePoolPop");
    auto* const pool = static_cast<Pool*>(pushed);
    hosts::device().classes->popAutoreleasePool(pool->device);
    [pool->foundation drain];
    delete pool;
    hosts::maybeRaise("objc_autoreleasePoolPop");
}

} // extern "C"
