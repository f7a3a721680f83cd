/// The Objective-C runtime: classes by name, classes of our own, and what an object can do.
#pragma once

#include <objc/objc.h>
#include <stddef.h>
#include <stdint.h>

typedef struct objc_ivar* Ivar;
typedef struct objc_method* Method;

#ifdef __cplusplus
extern "C" {
#endif

// Names.
Class objc_getClass(const char* name);
SEL sel_registerName(const char* name);

// What an object is and what it answers to.
Class object_getClass(id object);
const char* object_getClassName(id object);
const char* class_getName(Class);
Class class_getSuperclass(Class);
size_t class_getInstanceSize(Class);
BOOL class_respondsToSelector(Class, SEL);
IMP class_getMethodImplementation(Class, SEL);
Method class_getInstanceMethod(Class, SEL);
Method class_getClassMethod(Class, SEL);
unsigned method_getNumberOfArguments(Method); // receiver and selector included
const char* method_getTypeEncoding(Method);
Ivar class_getInstanceVariable(Class, const char* name);
const char* ivar_getTypeEncoding(Ivar);
ptrdiff_t ivar_getOffset(Ivar);

// The mixer's own classes.
Class objc_allocateClassPair(Class superclass, const char* name, size_t extraBytes);
void objc_registerClassPair(Class);
BOOL class_addIvar(Class, const char* name, size_t size, uint8_t log2Alignment, const char* types);
BOOL class_addMethod(Class, SEL, IMP, const char* types);

// Counting, and pools for the objects that methods answer.
id objc_retain(id);
void objc_release(id);
id objc_autorelease(id);
void* objc_autoreleasePoolPush(void);
void objc_autoreleasePoolPop(void*);

#ifdef __cplusplus
}
#endif
