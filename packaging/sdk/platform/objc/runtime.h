/// The Objective-C runtime: classes by name, classes of our own, and what an object can do.
///
/// What is not `noexcept` may run code of the host's, which may raise.
#pragma once

#include <objc/objc.h>
#include <stddef.h>
#include <stdint.h>

typedef struct objc_ivar* Ivar;
typedef struct objc_method* Method;

extern "C" {

// Names.
Class objc_getClass(const char* name) noexcept;
SEL sel_registerName(const char* name) noexcept;
const char* sel_getName(SEL) noexcept;

// What an object is and what it answers to. Those that search a class for a method, its superclasses included, ask the
// class to make one that is missing.
Class object_getClass(id object) noexcept;
const char* object_getClassName(id object) noexcept;
const char* class_getName(Class) noexcept;
Class class_getSuperclass(Class) noexcept;
size_t class_getInstanceSize(Class) noexcept;
BOOL class_respondsToSelector(Class, SEL);
IMP class_getMethodImplementation(Class, SEL);
Method class_getInstanceMethod(Class, SEL);
Method class_getClassMethod(Class, SEL);
Method* class_copyMethodList(Class, unsigned* count) noexcept; // the class's own alone; to be freed
SEL method_getName(Method) noexcept;
IMP method_getImplementation(Method) noexcept;
IMP method_setImplementation(Method, IMP) noexcept; // what was there
unsigned method_getNumberOfArguments(Method) noexcept; // receiver and selector included
const char* method_getTypeEncoding(Method) noexcept;
Ivar class_getInstanceVariable(Class, const char* name) noexcept;
const char* ivar_getTypeEncoding(Ivar) noexcept;
ptrdiff_t ivar_getOffset(Ivar) noexcept;

// The mixer's own classes.
Class objc_allocateClassPair(Class superclass, const char* name, size_t extraBytes) noexcept;
void objc_registerClassPair(Class) noexcept;
BOOL class_addIvar(Class, const char* name, size_t size, uint8_t log2Alignment, const char* types) noexcept;
BOOL class_addMethod(Class, SEL, IMP, const char* types) noexcept; // false where the class has one of its own

// Counting, and pools for the objects that methods answer.
id objc_retain(id object) noexcept;
void objc_release(id object); // runs the dealloc of an object that nobody else holds
id objc_autorelease(id object) noexcept;
void* objc_autoreleasePoolPush(void) noexcept;
void objc_autoreleasePoolPop(void*);

} // extern "C"
