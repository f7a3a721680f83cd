/// Message dispatch. To be cast to the type of the method before it is called.
#pragma once

extern "C" {

void objc_msgSend(void);
#if !defined(__aarch64__)
void objc_msgSend_stret(void); // answers structures through memory; the newer processors have no such entry
#endif

} // extern "C"
