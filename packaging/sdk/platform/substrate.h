/// The hooking framework.
#pragma once

#include <objc/objc.h>

#ifdef __cplusplus
extern "C" {
#endif

void MSHookMessageEx(Class, SEL message, IMP hook, IMP* old);

#ifdef __cplusplus
}
#endif
