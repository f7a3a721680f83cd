#!/usr/bin/env bash
# What panotra costs as a process: no more instructions than the table says.
#
#   program_cost.sh CASE PROGRAM SOURCES
#
# CASE is `start`, what comes before its first word, for which no library that draws may be loaded; or `scenario`, what
# 1,000 events take whose trace is JSON, counted by a few. SOURCES is the root of the repository, whose bench/README.md
# has a row for each. How long names and the environment are makes a difference; so does another version of a library: a
# twentieth is let go for that.
set -euo pipefail
case=$1 program=$2 sources=$3
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT

fail() {
    echo "program_cost: $1" >&2
    exit 1
}

instructions_of() { # ARGUMENT...
    env -i PATH=/usr/bin:/bin valgrind --tool=callgrind --callgrind-out-file="$folder/out" "$program" "$@" \
        >"$folder/printed" 2>"$folder/log" || fail "$(cat "$folder/log")"
    [[ -s $folder/printed ]] || fail "$program $* printed nothing"
    sed -n 's/^\(summary\|totals\): //p' "$folder/out" | head -n 1
}

expect_at_most() { # ROW COUNT
    local most
    most=$(sed -n "s/^| $1 | \([0-9,]*\) |.*/\1/p" "$sources/bench/README.md" | tr -d ,)
    [[ $most -gt 0 ]] || fail "bench/README.md has no row '$1'"
    echo "$1: $2 instructions, the table has $most"
    [[ $2 -le $((most + most / 20)) ]] || fail "more than the table has"
    [[ $2 -ge $((most - most / 5)) ]] || fail "the table has far too many: write down what was won"
}

case $case in
start)
    expect_at_most '`panotra --version`' "$(instructions_of --version)"
    loaded=$(ldd "$program" | grep -E 'cairo|pango|rsvg|SDL|pulse' || true)
    [[ -z $loaded ]] || fail "loaded for every command: $loaded"
    ;;
scenario)
    "$sources/bench/scenario" 4 >"$folder/few"
    "$sources/bench/scenario" 14 >"$folder/many"
    few=$(instructions_of play --format json "$folder/few")
    many=$(instructions_of play --format json "$folder/many")
    expect_at_most '1,000 events of a scenario, the trace as JSON' $(((many - few) * 10))
    ;;
*) fail "found '$case', expected start or scenario" ;;
esac
