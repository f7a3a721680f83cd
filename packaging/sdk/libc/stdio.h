/// EOF, which std::char_traits answers with, and `remove`, whose name <cstdio> shares with an algorithm.
#pragma once

#define EOF (-1)

#ifdef __cplusplus
extern "C" {
#endif

int remove(const char*);

#ifdef __cplusplus
}
#endif
