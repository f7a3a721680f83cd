/// Darwin notifications and their states.
#pragma once

#include <stdint.h>

#define NOTIFY_STATUS_OK 0

extern "C" {

uint32_t notify_register_check(const char* name, int* token) noexcept;
uint32_t notify_get_state(int token, uint64_t* state) noexcept;
uint32_t notify_post(const char* name) noexcept;

} // extern "C"
