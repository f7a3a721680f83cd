/// The hooking framework.
#pragma once

#include <objc/objc.h>

extern "C" {

void MSHookMessageEx(Class, SEL message, IMP hook, IMP* old) noexcept;

} // extern "C"
