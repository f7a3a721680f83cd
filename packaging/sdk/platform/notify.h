/// Darwin notifications and their states.
#pragma once

#include <stdint.h>

#define NOTIFY_STATUS_OK 0

#ifdef __cplusplus
extern "C" {
#endif

uint32_t notify_register_check(const char* name, int* token);
uint32_t notify_get_state(int token, uint64_t* state);
uint32_t notify_post(const char* name);

#ifdef __cplusplus
}
#endif
