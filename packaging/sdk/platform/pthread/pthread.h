/// Threads: which one is the main one.
#pragma once

extern "C" {

int pthread_main_np(void) noexcept; // not zero on the main thread

} // extern "C"
