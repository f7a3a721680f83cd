# The phone: 64-bit ARM, iOS 9 and later.
set(IOS_TARGET arm64-apple-ios9.0)
set(IOS_PROCESSOR arm64)
include("${CMAKE_CURRENT_LIST_DIR}/ios-toolchain.cmake")
