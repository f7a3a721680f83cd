/// Files that are made.
#pragma once

#ifdef __cplusplus
extern "C" {
#endif

int creat(const char* path, unsigned short mode);

#ifdef __cplusplus
}
#endif
