# Builds for the phone's system on a machine without the vendor's tools: clang and lld of LLVM 19, the headers and link
# stubs of packaging/sdk, and libc++'s headers. Included by the files that name a processor:
#
#   IOS_TARGET      clang's name of processor, system and least version
#   IOS_PROCESSOR   the processor alone
#   PANOTRA_LIBCXX  folder of libc++ 19's headers (the one that holds <vector>); given on the command line

set(CMAKE_SYSTEM_NAME Darwin)
set(CMAKE_SYSTEM_PROCESSOR "${IOS_PROCESSOR}")

find_program(CMAKE_CXX_COMPILER NAMES clang++-19 REQUIRED)
find_program(CMAKE_AR NAMES llvm-ar-19 REQUIRED)
find_program(CMAKE_RANLIB NAMES llvm-ranlib-19 REQUIRED)
find_program(CMAKE_INSTALL_NAME_TOOL NAMES llvm-install-name-tool-19 REQUIRED)
find_program(IOS_LINKER NAMES ld64.lld-19 REQUIRED)
set(CMAKE_CXX_COMPILER_TARGET "${IOS_TARGET}")

# The compiler's target says it all. CMake's own options for this system would ask for a vendor SDK.
set(CMAKE_OSX_SYSROOT "" CACHE STRING "" FORCE)
set(CMAKE_OSX_ARCHITECTURES "" CACHE STRING "" FORCE)
set(CMAKE_OSX_DEPLOYMENT_TARGET "" CACHE STRING "" FORCE)

# Nothing can be linked before the stubs are named, so CMake's probes only compile.
set(CMAKE_TRY_COMPILE_TARGET_TYPE STATIC_LIBRARY)
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES PANOTRA_LIBCXX)

# libc++'s configuration and string lists are overridden by ours, which therefore come first.
get_filename_component(ios_sdk "${CMAKE_CURRENT_LIST_DIR}/../packaging/sdk" ABSOLUTE)
set(ios_headers "${ios_sdk}/libcxx" "${PANOTRA_LIBCXX}" "${ios_sdk}/libc" "${ios_sdk}/platform")
list(TRANSFORM ios_headers PREPEND "-isystem ")
list(JOIN ios_headers " " ios_header_flags)
set(CMAKE_CXX_FLAGS_INIT "-nostdinc++ -nostdlibinc ${ios_header_flags}")
set(CMAKE_SHARED_LINKER_FLAGS_INIT "-fuse-ld=lld --ld-path=${IOS_LINKER} -Wl,-adhoc_codesign")
