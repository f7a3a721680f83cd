#!/usr/bin/env bash
# The script that makes traces the expected ones, on a tree of four cases and with a player that only pretends.
#
#   rebaseline_test.sh ROOT
source "$(dirname "${BASH_SOURCE[0]}")/rooms.sh"
root=$1

scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
export scratch
failures=0

# Each case has its own trace; what is played of it is its name, and "drag/broken" fails.
tree() {
    rm -rf "${scratch:?}"/*
    mkdir -p "$scratch/scripts" "$scratch/build" "$scratch/other" "$scratch/bin"
    cp "$root/scripts/rebaseline" "$scratch/scripts"
    local name
    for name in drag/slow drag/quick drag/broken tree/banner; do
        mkdir -p "$scratch/tests/scenarios/$name"
        echo "$name" >"$scratch/tests/scenarios/$name/scenario"
        echo old >"$scratch/tests/scenarios/$name/trace.jsonl"
    done
    # panotra play FILE --format json --trace OUT
    cat >"$scratch/build/panotra" <<'PLAYER'
#!/bin/bash
[[ $1 == play && "$3 $4 $5" == "--format json --trace" ]] || exit 99
read -r name <"$2"
echo "$name" >>"$scratch/played"
[[ $name != drag/broken ]] || exit 1
echo "new $name" >"$6"
PLAYER
    cat >"$scratch/bin/ctest" <<'TESTS'
#!/bin/bash
echo "ctest $*" >>"$scratch/calls"
printf '\nThe following tests FAILED:\n\t 12 - scenario/drag/quick (Failed)\n\t113 - scenario/tree/banner (SEGFAULT)\n'
exit 8
TESTS
    chmod +x "$scratch/build/panotra" "$scratch/bin/ctest"
    touch "$scratch/played" "$scratch/calls"
}

# Runs the script with the words; expects a status and the cases that are played.
run() {
    local expected=$1 played=$2 status=0
    shift 2
    what=$*
    PATH=$scratch/bin:$PATH "$scratch/scripts/rebaseline" "$@" >"$scratch/output" 2>"$scratch/errors" || status=$?
    [[ $status -eq $expected ]] || fail "status $status, expected $expected"
    [[ $(xargs <"$scratch/played") == "$played" ]] || fail "played $(xargs <"$scratch/played"), expected $played"
}

fail() {
    echo "$what: $1" >&2
    cat "$scratch/output" "$scratch/errors" >&2
    failures=$((failures + 1))
}
expect() { grep -qE -- "$2" "$scratch/$1" || fail "'$2' expected in the $1"; }
expect_trace() { [[ $(<"$scratch/tests/scenarios/$1/trace.jsonl") == "$2" ]] || fail "$1: trace '$2' expected"; }

tree
run 0 "drag/slow" drag/slow
expect_trace drag/slow "new drag/slow"
expect_trace drag/quick old
expect output 'cases 1, changed 1, failed 0'
run 0 "drag/slow drag/slow" drag/slow
expect output 'cases 1, changed 0, failed 0'

tree
run 0 "drag/slow tree/banner drag/quick" 'drag/*w' tree drag/q\?ick
expect_trace tree/banner "new tree/banner"

tree
run 1 "drag/broken drag/quick drag/slow" drag/
expect errors 'drag/broken: the play ended with status 1'
expect_trace drag/broken old
expect_trace drag/slow "new drag/slow"
[[ -z $(find "$scratch/tests" -name '.trace.*') ]] || fail "a trace that was not finished is left"

tree
run 0 "drag/quick tree/banner" --failing
expect calls '^ctest --test-dir .*/build .*scenario/'
expect_trace drag/quick "new drag/quick"
mv "$scratch/build/panotra" "$scratch/other"
run 0 "drag/quick tree/banner drag/slow" --build "$scratch/other" drag/slow

tree
for words in "" "--failing drag/slow" "nothing/like-it" "drag/slow nothing" "--frobnicate" "--build" \
    "--build nowhere drag/slow"; do
    # shellcheck disable=SC2086 # several words
    run 2 "" $words
    expect errors '^rebaseline: '
done

conclude "mistakes of the script that makes traces the expected ones" "$failures"
