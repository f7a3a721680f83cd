#!/usr/bin/env bash
# A damaged library is refused in one line, and nothing of it is run.
#
#   damaged_library.sh PROGRAM LIBRARY
#
# PROGRAM is panotra-objc; LIBRARY a library that it plays well, with its map beside it.
source "$(dirname "${BASH_SOURCE[0]}")/../../checks/rooms.sh"
program=$1 library=$2

scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
damaged=$scratch/Panotra.dylib
failures=0

# Plays it; expects the complaint and nothing else.
expect_refused() {
    local status=0
    echo load | "$program" play --library "$damaged" - >"$scratch/output" 2>"$scratch/errors" || status=$?
    if [[ $status -ne 3 || $(<"$scratch/errors") != "panotra: $damaged: $1" ]] || grep -q hook "$scratch/output"; then
        echo "status $status; expected: $1" >&2
        cat "$scratch/errors" >&2
        failures=$((failures + 1))
    fi
}
# Writes bytes over those at PLACE.
overwrite() { printf "$2" | dd of="$damaged" bs=1 seek="$1" conv=notrunc status=none; }

cp "${library%.dylib}.map" "$scratch"
cp "$library" "$damaged"
echo load | "$program" play --library "$damaged" - >"$scratch/output"
grep -q hook "$scratch/output" || failures=$((failures + 1))

truncate --size=70000 "$damaged"
expect_refused "ends in the middle of something"
cp "$library" "$damaged"
overwrite 4 '\x0c'
expect_refused "is for another processor"
cp "$library" "$damaged"
overwrite 16 '\xff'
expect_refused "ends in the middle of something"

conclude "damaged libraries that are taken" "$failures"
