/// Functions by name: UIKit is there or not, and is never linked. And where a library was loaded from.
#pragma once

#define RTLD_DEFAULT ((void*)-2)

typedef struct dl_info {
    const char* dli_fname; // path of the library that holds the address
    void* dli_fbase;
    const char* dli_sname;
    void* dli_saddr;
} Dl_info;

extern "C" {

void* dlsym(void* handle, const char* symbol) noexcept;
int dladdr(const void* address, Dl_info* information) noexcept; // 0: no library holds it

} // extern "C"
