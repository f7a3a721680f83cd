# Linux on the phone's processor, emulated: Debian's cross compiler, and the libraries of a private root.
#
#   PANOTRA_ROOT  folder of the root, which scripts/test-device-arm64 fills; given on the command line
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR aarch64)
set(CMAKE_CXX_COMPILER aarch64-linux-gnu-g++)
find_program(CMAKE_OBJCXX_COMPILER aarch64-linux-gnu-g++ REQUIRED)
set(CMAKE_CXX_FLAGS_INIT "-Wno-psabi") # speaks of other versions of the compiler
set(CMAKE_OBJCXX_FLAGS_INIT "-Wno-psabi")
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES PANOTRA_ROOT)

# The compiler brings C and C++ libraries to link with; everything else comes from the root.
set(CMAKE_PREFIX_PATH "${PANOTRA_ROOT}/usr")
set(ENV{PKG_CONFIG_LIBDIR} "${PANOTRA_ROOT}/usr/lib/aarch64-linux-gnu/pkgconfig")
set(ENV{PKG_CONFIG_SYSROOT_DIR} "${PANOTRA_ROOT}")
set(CMAKE_EXE_LINKER_FLAGS_INIT "-Wl,-rpath-link,${PANOTRA_ROOT}/usr/lib/aarch64-linux-gnu:${PANOTRA_ROOT}/usr/lib:${PANOTRA_ROOT}/lib/aarch64-linux-gnu")

find_program(QEMU_AARCH64 qemu-aarch64 REQUIRED)
set(CMAKE_CROSSCOMPILING_EMULATOR "${QEMU_AARCH64}" -L "${PANOTRA_ROOT}")
