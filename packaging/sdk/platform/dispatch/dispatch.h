/// Grand Central Dispatch: the main queue, now and later, and the names of queues.
#pragma once

#include <stdint.h>

typedef uint64_t dispatch_time_t;
typedef struct dispatch_queue_s* dispatch_queue_t;
typedef void (^dispatch_block_t)(void);
typedef void (*dispatch_function_t)(void*);

#define DISPATCH_TIME_NOW (0ull)

extern "C" {

extern struct dispatch_queue_s _dispatch_main_q;

dispatch_time_t dispatch_time(dispatch_time_t when, int64_t delta) noexcept;
void dispatch_async_f(dispatch_queue_t, void* context, dispatch_function_t work) noexcept;
void dispatch_after(dispatch_time_t when, dispatch_queue_t, dispatch_block_t) noexcept;
const char* dispatch_queue_get_label(dispatch_queue_t) noexcept; // null stands for the queue that the caller runs on

} // extern "C"

static inline dispatch_queue_t dispatch_get_main_queue(void)
{
    return &_dispatch_main_q;
}
