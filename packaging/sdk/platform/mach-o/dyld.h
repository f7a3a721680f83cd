/// The dynamic loader: what is loaded into the process.
#pragma once

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

uint32_t _dyld_image_count(void);
const char* _dyld_get_image_name(uint32_t index); // null for an image that went meanwhile

#ifdef __cplusplus
}
#endif
