/// Memory, and what <cstdlib> and libc++'s own stdlib.h name.
#pragma once

#include <stddef.h>

#ifdef __cplusplus
extern "C" {
#endif

// libc++ overloads these for every width.
typedef struct {
    int quot;
    int rem;
} div_t;
typedef struct {
    long quot;
    long rem;
} ldiv_t;
typedef struct {
    long long quot;
    long long rem;
} lldiv_t;
div_t div(int, int);
ldiv_t ldiv(long, long);
lldiv_t lldiv(long long, long long);
int abs(int);
long labs(long);
long long llabs(long long);

void* malloc(size_t);
void* calloc(size_t, size_t);
void* realloc(void*, size_t);
void free(void*);
int posix_memalign(void**, size_t, size_t);

#ifdef __cplusplus
}
#endif
