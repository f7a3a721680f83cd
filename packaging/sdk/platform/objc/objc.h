/// The types of the Objective-C runtime's C interface.
#pragma once

typedef struct objc_class* Class;
typedef struct objc_object* id;
typedef struct objc_selector* SEL;
typedef void (*IMP)(void);

// The platform's truth value is C++'s own where pointers have 64 bits and a signed character elsewhere. The runtime
// under which the tests run on Linux has a third.
#if !defined(__APPLE__)
typedef unsigned char BOOL;
#elif defined(__LP64__)
typedef bool BOOL;
#else
typedef signed char BOOL;
#endif
