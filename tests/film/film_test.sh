#!/usr/bin/env bash
# panotra film as it is called: its options, and the bar that a terminal shows.
#
#   film_test.sh PANOTRA CASE
#
# CASE is the name of a function below, with hyphens.
set -euo pipefail
panotra=$1 case=$2

scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
cd "$scratch"
export HOME=$scratch
printf 'load\nlaunch\nwait 0.2\n' >scenario

fail() {
    echo "$case: $1" >&2
    exit 1
}

a_terminal_shows_how_far_it_is_and_nothing_else_does() {
    "$panotra" film scenario --output film.webp --size 64x64 2>complaints || fail "status $?"
    [[ ! -s complaints ]] || fail "a file gets a bar"
    script --quiet --return --command "'$panotra' film scenario --output film.gif --size 64x64" told >/dev/null ||
        fail "status $? on a terminal"
    grep -qF '[########################################] 100 %' told || fail "a terminal gets no bar"
    [[ $(head -c 4 film.webp) == RIFF && $(head -c 6 film.gif) == GIF89a ]] || fail "these are no films"
}

options_out_of_their_ranges_are_one_line() {
    local option status
    for option in "--size 63x64" "--size 64" "--size 64x5000" "--fps 0" "--fps 61" "--speed 17" "--speed 0" "--speed fast"; do
        status=0
        # shellcheck disable=SC2086 # two words
        "$panotra" film scenario --output film.webp $option 2>complaints || status=$?
        [[ $status -eq 2 && $(wc -l <complaints) -eq 1 ]] || fail "$option: status $status, $(<complaints)"
        grep -q -- "${option%% *}" complaints || fail "$option: $(<complaints)"
    done
    status=0
    "$panotra" film scenario 2>complaints || status=$?
    [[ $status -eq 2 && $(wc -l <complaints) -eq 1 ]] || fail "without an output: status $status"
    [[ ! -e film.webp ]] || fail "a mistake in the command line has made a file"
}

"${case//-/_}"
