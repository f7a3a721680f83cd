#!/usr/bin/env bash
# The checks of the logic's objects must find every kind of violation.
#
#   logic_objects_self_test.sh OBJECTS COMPILER SEAM
source "$(dirname "${BASH_SOURCE[0]}")/rooms.sh"
objects=$1 compiler=$2 seam=$3
here=$(dirname "${BASH_SOURCE[0]}")

scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
failures=0

# Adds an object made from the text to a copy of the logic's, and expects the check, a command, to say something of it.
expect_found() {
    local plant=$1 expected=$2
    shift 2
    rm -rf "$scratch/objects"
    cp -r "$objects" "$scratch/objects"
    if [[ -n $plant ]]; then
        "$compiler" -std=c++20 -O0 -fPIC -x c++ -c - -o "$scratch/objects/Planted.o" <<<"$plant"
    else
        rm "$scratch/objects/Constructor.o"
    fi
    if "$@" >"$scratch/said" 2>&1 || ! grep -qF "$expected" "$scratch/said"; then
        echo "not found: ${plant:-the constructor is missing}" >&2
        cat "$scratch/said" >&2
        failures=$((failures + 1))
    fi
}

initialisers=("$here/static_initialisers.sh" "$scratch/objects")
expect_found '#include <cstdlib>
              int value = std::atoi("1");' 'Planted.o: initialises a variable' "${initialisers[@]}"
expect_found 'struct Owner { ~Owner(); }; Owner owner;' 'Planted.o: registers a destructor' "${initialisers[@]}"
expect_found 'struct Owner { ~Owner(); }; void use() { static Owner owner; }' 'registers a destructor' "${initialisers[@]}"
expect_found '[[gnu::constructor]] void start() { }' 'Planted.o: runs code when' "${initialisers[@]}"
expect_found '[[gnu::destructor]] void stop() { }' 'Planted.o: runs code when' "${initialisers[@]}"
expect_found '' 'Constructor.o: missing' "${initialisers[@]}"

symbols=("$here/logic_symbols.sh" "$scratch/objects" "$compiler" "$seam")
expect_found 'namespace panotra::sim { void wind(); }
              void turn() { panotra::sim::wind(); }' 'panotra::sim::wind()' "${symbols[@]}"
expect_found 'namespace panotra { void undeclared(); }
              void turn() { panotra::undeclared(); }' 'panotra::undeclared()' "${symbols[@]}"
expect_found 'extern "C" void plist_free(void*);
              void turn() { plist_free(nullptr); }' 'plist_free' "${symbols[@]}"

conclude "plants that the checks of the objects overlook" "$failures"
