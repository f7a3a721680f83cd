/// Functions by name: UIKit is there or not, and is never linked.
#pragma once

#define RTLD_DEFAULT ((void*)-2)

#ifdef __cplusplus
extern "C" {
#endif

void* dlsym(void* handle, const char* symbol);

#ifdef __cplusplus
}
#endif
