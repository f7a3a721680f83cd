# The vendor's simulator on a 64-bit PC. Nobody installs this one: it is what a PC can load and run as it stands.
set(IOS_TARGET x86_64-apple-ios11.0-simulator)
set(IOS_PROCESSOR x86_64)
include("${CMAKE_CURRENT_LIST_DIR}/ios-toolchain.cmake")
