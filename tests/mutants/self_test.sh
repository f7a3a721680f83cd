#!/usr/bin/env bash
# Plants mutants into a sample and lets them live: each kind is planted, what a test looks at is caught, what none looks at
# survives, and the record, the sample and the notes of equivalent ones do what they should.
#
#   self_test.sh ROOT PLANT_MUTANTS RUN_MUTANTS
set -euo pipefail
root=$1 plant_mutants=$2 run_mutants=$3

scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
failures=0
fail() {
    echo "$1" >&2
    failures=$((failures + 1))
}
expect() { grep -qxE -- "$2" "$scratch/$1" || { fail "'$2' expected in the $1:" && cat "$scratch/$1" >&2; }; }

# A room of one source.
mkdir -p "$scratch/from/sample" "$scratch/to/tests"
cp "$root/tests/mutants/Sample.cpp" "$scratch/from/sample/"
"$plant_mutants" "$scratch/from" "$scratch/to" "$scratch/list" sample -- sample/Sample.cpp -- \
    -xc++ -std=c++20 -I"$root" -resource-dir "$(clang-19 -print-resource-dir)" >"$scratch/output"
for kind in arithmetic assignment call comparison condition constant logic negation null result return swap; do
    cut -f 6 "$scratch/list" | grep -qx "$kind" || fail "no mutant of the kind $kind"
done
expect output "$(wc -l <"$scratch/list") mutants"

c++ -std=c++20 -O0 -I"$root" "$scratch/to/sample/Sample.cpp" \
    "$root/tests/mutants/sample_test.cpp" -o "$scratch/sample_test"
cat >"$scratch/tests.json" <<JSON
{ "tests": [ { "name": "doors", "command": [ "$scratch/sample_test", "doors" ] },
             { "name": "hours", "command": [ "$scratch/sample_test", "hours" ] } ] }
JSON
: >"$scratch/equivalent"
run() {
    local expected=$1 status=0
    shift
    "$run_mutants" "$scratch/list" "$scratch/tests.json" "$scratch/equivalent" "$scratch/record" 1 "$@" \
        >"$scratch/output" 2>&1 || status=$?
    [[ $status -eq $expected ]] || { fail "status $status, expected $expected:" && cat "$scratch/output" >&2; }
}

# A few, and then the others.
run 1 5 7
[[ $(wc -l <"$scratch/record") -eq 5 ]] || fail "five mutants were asked for"
run 1
[[ $(wc -l <"$scratch/record") -eq $(wc -l <"$scratch/list") ]] || fail "not every mutant was tried once"
expect output 'sample/Sample.cpp:[0-9]+: survived: isOpen: comparison: hour < 20 => <='
expect output 'sample/Sample.cpp:[0-9]+: unreached: forgotten: arithmetic: value \+ 1 => -'
expect record $'caught\tdoors\tsample/Sample.cpp:[0-9]+\tsample/Sample.cpp: stepsOf: swap: open\(\) <=> close\(\)'
expect record $'caught\thours\tsample/Sample.cpp:[0-9]+\tsample/Sample.cpp: isOpen: comparison: hour < 20 => >='
expect record $'caught\tdoors\tsample/Sample.cpp:[0-9]+\tsample/Sample.cpp: throughTheDoor: null: door => null'

# Those that survive count no more once they are called equivalent.
awk -F '\t' '$1 != "caught" { print $4; print "  nobody sees it" }' "$scratch/record" >"$scratch/equivalent"
run 0
expect output 'sample +[0-9]+ +[0-9]+ +[1-9][0-9]* +0  100.00 %'
awk -F '\t' '$1 == "caught" { print $4; print "  wrong"; exit }' "$scratch/record" >>"$scratch/equivalent"
run 1
expect output 'called equivalent, but caught by .*'
printf 'sample/Sample.cpp: isOpen: call: gone\n  it was here once\n' >"$scratch/equivalent"
run 1
expect output 'called equivalent, but not planted: sample/Sample.cpp: isOpen: call: gone'

[[ $failures -eq 0 ]] || exit 1
echo "mutants: every kind is planted, caught ones and survivors are told apart"
