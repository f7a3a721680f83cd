/// What the kernel says of the machine.
#pragma once

#include <stddef.h>

#ifdef __cplusplus
extern "C" {
#endif

// 0: the value of that name is in `value`, its length in bytes in `*size`.
int sysctlbyname(const char* name, void* value, size_t* size, void* newValue, size_t newSize);

#ifdef __cplusplus
}
#endif
