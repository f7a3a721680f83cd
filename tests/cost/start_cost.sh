#!/usr/bin/env bash
# What panotra costs before its first word: no more than the table says, and no library that draws is loaded for it.
#
#   start_cost.sh PROGRAM TABLE
#
# TABLE is bench/README.md, with a row "| `panotra --version` | INSTRUCTIONS |". How long names and the environment are
# makes a difference; so does another version of a library. A tenth is let go for both.
set -euo pipefail
program=$1 table=$2
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT

most=$(sed -n 's/^| `panotra --version` | \([0-9,]*\) |.*/\1/p' "$table" | tr -d ,)
[[ $most -gt 0 ]] || { echo "start_cost: $table has no row for panotra --version" >&2; exit 1; }
env -i PATH=/usr/bin:/bin valgrind --tool=callgrind --callgrind-out-file="$folder/out" "$program" --version \
    >"$folder/printed" 2>"$folder/log" || { cat "$folder/log" >&2; exit 1; }
grep -q '^panotra [0-9]' "$folder/printed"
count=$(sed -n 's/^\(summary\|totals\): //p' "$folder/out" | head -n 1)
echo "panotra --version: $count instructions, the table has $most"
[[ $count -le $((most + most / 10)) ]] || { echo "start_cost: more than the table has" >&2; exit 1; }
loaded=$(ldd "$program" | grep -E 'cairo|pango|rsvg|SDL|pulse' || true)
[[ -z $loaded ]] || { echo "start_cost: loaded for every command: $loaded" >&2; exit 1; }
