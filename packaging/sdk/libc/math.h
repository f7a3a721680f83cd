/// The mathematics of <cmath>; the macros are what libc++ classifies numbers with.
#pragma once

#define FP_NAN 1
#define FP_INFINITE 2
#define FP_ZERO 3
#define FP_NORMAL 4
#define FP_SUBNORMAL 5

#define HUGE_VAL __builtin_huge_val()
#define HUGE_VALF __builtin_huge_valf()
#define HUGE_VALL __builtin_huge_vall()
#define INFINITY __builtin_inff()
#define NAN __builtin_nanf("")

#ifdef __cplusplus
extern "C" {
#endif

// libc++ overloads the double functions for every type and so needs each in three widths.
double cos(double);
float cosf(float);
long double cosl(long double);
double fmod(double, double);
float fmodf(float, float);
long double fmodl(long double, long double);
double sin(double);
float sinf(float);
long double sinl(long double);

#ifdef __cplusplus
}
#endif
