#!/usr/bin/env bash
# Compiles the whole logic with one compiler at one level of optimisation, every warning an error.
#
#   compile_logic.sh ROOT COMPILER LEVEL OBJECTS
#
# Leaves ROOM/NAME.o in the folder OBJECTS, for the checks of what the compiler made of it.
source "$(dirname "${BASH_SOURCE[0]}")/rooms.sh"
root=$1 compiler=$2 level=$3 objects=$4

flags=(-std=c++20 "$level" -fPIC -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror -fno-exceptions -fno-rtti -I "$root")

# Somebody who tests often has the cache; nobody needs it.
command=("$compiler")
[[ -z $(type -P ccache) ]] || command=(ccache "$compiler")

rm -rf "$objects"
mkdir -p "${logic_rooms[@]/#/$objects/}"
logic_sources "$root" | xargs -P "$(nproc)" -I{} "${command[@]}" "${flags[@]}" -c "$root/{}" -o "$objects/{}.o"
echo "$(logic_sources "$root" | wc -l) files compiled"
