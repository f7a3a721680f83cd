#!/usr/bin/env bash
# The logic, the seam over the Objective-C runtime and the doctor compile for a 32-bit phone, all but the logic for the
# machine at hand by another compiler, and every header of the seam, of the doctor and of the small SDK compiles by itself.
#
#   compiles_elsewhere.sh ROOT DEVICE
#
# DEVICE is the folder that scripts/build-device filled.
source "$(dirname "${BASH_SOURCE[0]}")/../checks/rooms.sh"
root=$(cd "$1" && pwd) device=$(cd "$2" && pwd)
libcxx=$device/libcxx/usr/lib/llvm-19/include/c++/v1

scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

# compile TARGETS OPTION...: builds these of the device's project, or "all" that can be built with the options.
compile() {
    local targets
    read -r -a targets <<<"$1"
    cmake -S "$root/packaging" -B "$scratch/build" -G Ninja --log-level=WARNING --fresh \
        -D CMAKE_BUILD_TYPE=Debug -D CMAKE_CXX_FLAGS_DEBUG=-O0 "${@:2}" >/dev/null # nothing of it is ever run
    cmake --build "$scratch/build" --target "${targets[@]}" -- --quiet
}
compile all --toolchain "$root/cmake/ios-armv7.cmake" -D PANOTRA_LIBCXX="$libcxx"
rm -r "$scratch/build"
# Of the other compilers, clang 19 makes the library that the tests load. The logic's own check tries this one on it, twice.
compile 'panotra_platform_ios panotra_platform_ios_rootful panotra_platform_ios_rootless panotra_doctor sign-library check-signature' \
    -D CMAKE_CXX_COMPILER=clang++-14

warnings=(-std=c++20 -fsyntax-only -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror)
failures=0
# Compiles an including file, as a header is read.
alone() {
    local header=$1
    shift
    if ! clang++-19 "${warnings[@]}" "$@" -x c++ - <<<"#include \"$header\""; then
        echo "$header does not compile alone" >&2
        failures=$((failures + 1))
    fi
}
while read -r header; do
    alone "$header" -fblocks -I "$root" -isystem "$root/packaging/sdk/platform"
done < <(cd "$root" && find platform/ios doctor -name '*.h' | sort)

sdk=$root/packaging/sdk
while read -r header; do
    alone "$header" --target=arm64-apple-ios9.0 -fblocks -nostdinc++ -nostdlibinc -isystem "$sdk/libcxx" \
        -isystem "$libcxx" -isystem "$sdk/libc" -isystem "$sdk/platform"
done < <(cd "$root" && find "$sdk/libc" "$sdk/platform" -name '*.h' | sort)

conclude "headers that do not compile alone" "$failures"
