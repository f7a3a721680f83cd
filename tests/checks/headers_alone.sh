#!/usr/bin/env bash
# Every header compiles by itself: it includes what it uses.
#
#   headers_alone.sh ROOT COMPILER
#
# What a source of the logic includes before anything else has proved it already: compile_logic.sh compiles those without
# precompiled headers, which would hide what is missing. The headers of platform/ios are left out, since they need the
# declarations of the device's own build, and those of tests/, since they are read with what their program defines.
source "$(dirname "${BASH_SOURCE[0]}")/rooms.sh"
root=$1 compiler=$2

flags=(-std=c++20 -fsyntax-only -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror -I "$root")
libraries=(libplist-2.0 cairo pangocairo librsvg-2.0 sdl2)
read -r -a library_flags <<<"$(pkg-config --cflags "${libraries[@]}")"

# What each source of the logic includes first, if that is a header of ours.
proved() {
    (cd "$root" && logic_sources . | xargs awk '/^#include / { print; nextfile }' |
        sed -n 's/^#include "\(.*\)"$/\1/p' | sort -u)
}

# Through an including file, as a header is read: a `#pragma once` in a main file is something to warn about.
compile_header() {
    local header=$1
    shift
    "$@" -x c++ - <<<"#include \"$header\"" || { echo "$header does not compile alone" >&2; return 1; }
}
export -f compile_header

headers=$(sources "$root" | grep '\.h$' | grep -vE '^(platform/ios|tests)/' | comm -23 - <(proved))
xargs -P "$(nproc)" -I{} bash -c 'compile_header "$@"' - {} "$compiler" "${flags[@]}" "${library_flags[@]}" <<<"$headers"
echo "$(wc -l <<<"$headers") headers compile alone"
