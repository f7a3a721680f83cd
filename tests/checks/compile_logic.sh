#!/usr/bin/env bash
# Compiles the whole logic with one compiler at one level of optimisation, every warning an error.
#
#   compile_logic.sh ROOT COMPILER LEVEL OBJECTS
#
# Leaves ROOM.o in the folder OBJECTS, the sources of a room compiled together, and hooks/Constructor.cpp by itself as
# Constructor.o, for the checks of what the compiler made of it. That each source compiles by itself is proved by the
# device's build.
source "$(dirname "${BASH_SOURCE[0]}")/rooms.sh"
root=$1 compiler=$2 level=$3 objects=$4

flags=(-std=c++20 "$level" -fPIC -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror -fno-exceptions -fno-rtti -I "$root")
# gcc takes sources that are compiled together for headers.
[[ $compiler != g++* ]] || flags+=(-Wno-subobject-linkage)

rm -rf "$objects"
mkdir -p "$objects"
constructor=hooks/Constructor.cpp
# What the headers want of the standard library is read once; gcc takes as long to take in what it has read.
if [[ $compiler == clang* ]]; then
    # shellcheck disable=SC2046 # the names of rooms hold no blanks
    (cd "$root" && find $(existing_rooms . "${logic_rooms[@]}") platform -maxdepth 1 -name '*.h' -exec grep -hoE '^#include <[a-z_]+>' {} + |
        sort -u) >"$objects/standard.h"
    "$compiler" "${flags[@]}" -x c++-header "$objects/standard.h" -o "$objects/standard.pch"
    flags+=(-include-pch "$objects/standard.pch")
fi
compile() { "$compiler" "${flags[@]}" -x c++ -c - -o "$objects/$1.o"; }
include_all() { sed 's/.*/#include "&"/'; }

echo "$constructor" | include_all | compile Constructor
others() { logic_sources "$root" | grep -vx "$constructor"; }
for room in $(others | cut -d/ -f1 | sort -u); do
    others | grep "^$room/" | include_all | compile "$room"
done
echo "$(logic_sources "$root" | wc -l) files compiled"
