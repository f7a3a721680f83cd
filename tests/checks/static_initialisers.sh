#!/usr/bin/env bash
# Code that runs when the library is loaded, before anybody asked: one registration in hooks/Constructor.cpp, and
# nothing else, neither at load nor at exit.
#
#   static_initialisers.sh OBJECTS
source "$(dirname "${BASH_SOURCE[0]}")/rooms.sh"
objects=$1
constructor=Constructor.o
pointer_bytes=8

# The sizes in bytes of the tables of initialisers and finalisers in an object, one a line.
table_sizes() {
    readelf --section-headers --wide "$1" | sed 's/^ *\[ *[0-9]*\] *//' |
        while read -r name _ _ _ size _; do
            case $name in
            .init_array* | .fini_array* | .preinit_array* | .ctors* | .dtors*) echo $((16#$size)) ;;
            esac
        done
}

found=0
complain() {
    echo "$1: $2" >&2
    found=$((found + 1))
}

[[ -f $objects/$constructor ]] || complain "$constructor" "missing"
while read -r object; do
    sizes=$(table_sizes "$objects/$object" | xargs)
    if [[ $object == "$constructor" ]]; then
        [[ $sizes == "$pointer_bytes" ]] || complain "$object" "one initialiser expected, tables of these sizes found: ${sizes:-none}"
    elif [[ -n $sizes ]]; then
        complain "$object" "runs code when it is loaded or unloaded"
    fi
    symbols=$(nm "$objects/$object")
    if grep -qE '_GLOBAL__(sub_)?[ID]_|__cxx_global_var_init' <<<"$symbols"; then
        complain "$object" "initialises a variable when it is loaded"
    fi
    if grep -qE ' (__cxa_atexit|__cxa_thread_atexit|atexit)$' <<<"$symbols"; then
        complain "$object" "registers a destructor to run at exit"
    fi
done < <(cd "$objects" && find . -name '*.o' -printf '%P\n' | sort)

conclude "static initialisers beside the constructor's registration" "$found"
