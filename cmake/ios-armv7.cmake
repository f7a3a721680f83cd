# 32-bit phones: proves that everything compiles where graphics floats and pointers have 32 bits. The linker at hand
# cannot link for this processor.
set(IOS_TARGET armv7-apple-ios9.0)
set(IOS_PROCESSOR armv7)
include("${CMAKE_CURRENT_LIST_DIR}/ios-toolchain.cmake")
