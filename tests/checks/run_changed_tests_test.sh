#!/usr/bin/env bash
# The script that leaves out tests, on a small tree with tests of its own: what a test can see runs it again when it
# changes.
#
#   run_changed_tests_test.sh ROOT
source "$(dirname "${BASH_SOURCE[0]}")/rooms.sh"
root=$1

scratch=$(realpath "$(mktemp -d)")
trap 'rm -rf "$scratch"' EXIT
tree=$scratch/tree
build=$tree/build
failures=0

# The script fails while there is a file $scratch/trouble, of which no test is told.
mkdir -p "$tree"/{scripts,hooks,docs} "$build"/{own,other,held,both}
cp "$root/scripts/run-changed-tests" "$tree/scripts"
echo 'int one;' >"$tree/hooks/One.cpp"
echo one >"$tree/docs/page.md"
printf '#!/bin/bash\n[[ ! -e %s/trouble ]]\n' "$scratch" >"$tree/script.sh"
chmod +x "$tree/script.sh"
echo "$build/held/program" >"$scratch/path"
# A section of this name, which holds the path of a third program or something else.
add_section() { objcopy --add-section "$2=${3:-$tree/docs/page.md}" "$build/$1/program"; }
for place in own other held; do
    cp "$(type -P true)" "$build/$place/program"
done
add_section other .paths "$scratch/path"
cat >"$build/both/CTestTestfile.cmake" <<END_OF_TESTS
add_test(first "$tree/script.sh")
add_test(own "$build/own/program")
add_test(other "$tree/script.sh" "PROGRAM=$build/other/program")
add_test(sources "$tree/script.sh" "$tree/hooks")
add_test(making "$(type -P true)" "$tree")
set_tests_properties(making PROPERTIES FIXTURES_SETUP made)
add_test(taking "$(type -P true)")
set_tests_properties(taking PROPERTIES FIXTURES_REQUIRED made)
END_OF_TESTS

# expect_run WHAT TEST...: WHAT has happened, and so these tests run, in the order of their names; of which as many fail
# as $failing says. The words in $words go to the script.
failing=0
words=
expect_run() {
    local what=$1 expected="${*:2}" status=0 ran
    # shellcheck disable=SC2086 # no word or one
    "$tree/scripts/run-changed-tests" "$build/both" "$build" 1 $words >"$scratch/said" 2>&1 || status=$?
    ran=$(sed -nE 's/^ *[0-9]+\/[0-9]+ Test +#[0-9]+: ([a-z]+) .*/\1/p' "$scratch/said" | sort | xargs)
    if [[ $ran != "$expected" || $(tail -n 1 "$scratch/said") != *"% tests passed, $failing tests failed out of $(wc -w <<<"$expected")" ]] ||
        (((status == 0) != (failing == 0))); then
        echo "$what: status $status, ran $ran, not $expected" >&2
        cat "$scratch/said" >&2
        failures=$((failures + 1))
    fi
}

touch "$scratch/trouble"
failing=3
expect_run "a fresh build" first making other own sources taking
rm "$scratch/trouble"
failing=0
expect_run "three failed, and nothing has changed" first other sources
expect_run "all passed, and nothing has changed" first
grep -q ': 6 of 6; make test ALL=1' "$scratch/said" || { echo "not said how many were left out" >&2; failures=$((failures + 1)); }

add_section own .debug_lines
expect_run "a program has other lines for the debugger" first
add_section own .more
expect_run "a program has changed" own
add_section held .more
expect_run "a program has changed that another names" other
cp "$build/held/program" "$build/other/beside"
expect_run "a program is new beside one that a script is given" other

touch "$scratch/trouble"
failing=1
expect_run "one runs although it passed, and fails" first
rm "$scratch/trouble"
failing=0
add_section own .again
expect_run "it failed, and another program has changed" first own

echo 'int two;' >>"$tree/hooks/One.cpp"
expect_run "a source has changed" making sources taking
chmod +x "$tree/docs/page.md"
expect_run "a file of data may be run" first making other own sources taking
echo "add_test(added \"$(type -P true)\")" >>"$build/both/CTestTestfile.cmake"
sed -i 's/^add_test(own .*program"/& --version/' "$build/both/CTestTestfile.cmake"
expect_run "a test is new, and one has another command" added own
FAULT_ROUNDS=7 expect_run "the environment asks for more" added first making other own sources taking
words=all
FAULT_ROUNDS=7 expect_run "all are asked for" added first making other own sources taking
words=
# The tests alone know whether they ran before or after the change.
sed -i "s|^\[\[|echo three >>$tree/docs/page.md; [[|" "$tree/script.sh"
expect_run "a file changes while the tests run" added first making other own sources taking
sed -i 's/^echo[^;]*; //' "$tree/script.sh"
expect_run "a file has changed while the tests ran" added first making other own sources taking

conclude "mistakes of the script that leaves out tests" "$failures"
