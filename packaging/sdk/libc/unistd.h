/// Files that are open.
#pragma once

#include <stddef.h>

#ifdef __cplusplus
extern "C" {
#endif

long write(int file, const void* bytes, size_t count);
int fsync(int file);
int close(int file);

#ifdef __cplusplus
}
#endif
