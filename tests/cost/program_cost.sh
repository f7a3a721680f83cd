#!/usr/bin/env bash
# What a process costs: no more instructions than the table says.
#
#   program_cost.sh CASE PROGRAM SOURCES
#
# SOURCES is the root of the repository, whose bench/README.md has a row for each CASE:
#
#   start        what comes before panotra's first word, for which no library that draws may be loaded
#   scenario     what 1,000 events take whose trace is JSON, counted by a few
#   constructor  what the library does while it is loaded, in the library's file alone; PROGRAM is panotra-objc
#
# How long names and the environment are makes a difference; so does another version of a library: a twentieth is let go
# for that.
set -euo pipefail
case=$1 program=$2 sources=$3
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT

fail() {
    echo "program_cost: $1" >&2
    exit 1
}

under_callgrind() { # OPTION... PROGRAM ARGUMENT...
    env -i PATH=/usr/bin:/bin valgrind --tool=callgrind --callgrind-out-file="$folder/out" "$@" \
        >"$folder/printed" 2>"$folder/log" || fail "$(cat "$folder/log")"
    [[ -s $folder/printed ]] || fail "it printed nothing"
}

instructions_of() { # ARGUMENT...
    under_callgrind "$program" "$@"
    sed -n 's/^\(summary\|totals\): //p' "$folder/out" | head -n 1
}

instructions_of_constructor_in() { # BUNDLE
    printf 'process %s\nload\n' "$1" >"$folder/scenario"
    # Without what is for debuggers, of which valgrind does not understand all that compilers write.
    strip --strip-debug -o "$folder/program" "$program"
    under_callgrind --collect-atstart=no --toggle-collect='panotra::constructor()' \
        "$folder/program" play --format json "$folder/scenario"
    callgrind_annotate --threshold=100 "$folder/out" 2>/dev/null |
        awk '/\[.*\/libPanotra\.so\]$/ { gsub(",", "", $1); own += $1 } END { print own + 0 }'
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
    # shellcheck disable=SC2016 # the marks are those of the table
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
constructor)
    expect_at_most 'constructor in the home screen' "$(instructions_of_constructor_in com.apple.springboard)"
    expect_at_most 'constructor in another process' "$(instructions_of_constructor_in com.example.other)"
    ;;
*) fail "found '$case', expected start, scenario or constructor" ;;
esac
