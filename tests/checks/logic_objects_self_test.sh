#!/usr/bin/env bash
# The checks of the logic's objects must find every kind of violation.
#
#   logic_objects_self_test.sh OBJECTS COMPILER SEAM
source "$(dirname "${BASH_SOURCE[0]}")/rooms.sh"
objects=$1 compiler=$2 seam=$3
here=$(dirname "${BASH_SOURCE[0]}")

scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

# plant NAME TEXT: an object made from the text beside a copy of the logic's.
plant() { "$compiler" -std=c++20 -O0 -fPIC -x c++ -c - -o "$scratch/objects/$1.o" <<<"$2"; }
# expect_found COMPLAINTS CHECK...: the check must fail and say all that, a line each. Each object is named in what is
# said of it, so one run of the check does for all plants.
expect_found() {
    local complaint
    if "${@:2}" >"$scratch/said" 2>&1; then
        echo "nothing found" >>"$scratch/said"
    fi
    while read -r complaint; do
        grep -qF -- "$complaint" "$scratch/said" || missed+=("$complaint")
    done <<<"$1"
}
missed=()

# What is complained of is counted where it is said; and before anything is planted there is nothing.
cp -r "$objects" "$scratch/objects"
"$here/static_initialisers.sh" "$scratch/objects" >/dev/null
"$here/logic_symbols.sh" "$scratch/objects" "$compiler" "$seam" >/dev/null

plant Initialised '#include <cstdlib>
                   int value = std::atoi("1");'
plant Destroyed 'struct Owner { ~Owner(); }; Owner owner;'
plant DestroyedLater 'struct Owner { ~Owner(); }; void use() { static Owner owner; }'
plant Begun '[[gnu::constructor]] void start() { }'
plant Ended '[[gnu::destructor]] void stop() { }'
rm "$scratch/objects/Constructor.o"
expect_found 'Initialised.o: initialises a variable
Destroyed.o: registers a destructor
DestroyedLater.o: registers a destructor
Begun.o: runs code when
Ended.o: runs code when
Constructor.o: missing' "$here/static_initialisers.sh" "$scratch/objects"

plant Simulator 'namespace panotra::sim { void wind(); }
                 void turn() { panotra::sim::wind(); }'
plant Undeclared 'namespace panotra { void undeclared(); }
                  void turnBack() { panotra::undeclared(); }'
plant Library 'extern "C" void plist_free(void*);
               void forget() { plist_free(nullptr); }'
expect_found 'panotra::sim::wind()
panotra::undeclared()
plist_free' "$here/logic_symbols.sh" "$scratch/objects" "$compiler" "$seam"

[[ ${#missed[@]} -eq 0 ]] || { printf 'not found: %s\n' "${missed[@]}" && cat "$scratch/said"; } >&2
conclude "plants that the checks of the objects overlook" "${#missed[@]}"
