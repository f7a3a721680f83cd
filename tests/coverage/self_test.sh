#!/usr/bin/env bash
# The report of what no test reaches, over a tracefile made by hand.
#
#   self_test.sh ROOT
set -euo pipefail
root=$1
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
failures=0

mkdir "$scratch/room"
printf 'int f(int a)\n{\n    if (a > 1)\n        return 5;\n    return 6;\n}\n' >"$scratch/room/f.cpp"
printf 'SF:%s/room/f.cpp\nDA:1,3\nDA:2,3\nDA:3,3\nBRDA:3,0,0,0\nBRDA:3,0,1,3\nDA:4,0\nDA:5,3\nDA:6,0\nend_of_record\n' "$scratch" \
    >"$scratch/trace"

# STATUS LINE: runs the report with the reasons of standard input.
report() {
    local status=0
    cat >"$scratch/reasons"
    "$root/tests/coverage/report.sh" "$scratch" "$scratch/trace" "$scratch/reasons" >"$scratch/output" || status=$?
    if [[ $status -ne $1 ]] || ! grep -qxE -- "$2" "$scratch/output"; then
        echo "status $status, expected $1 and '$2':" >&2
        cat "$scratch/output" >&2
        failures=$((failures + 1))
    fi
}

report 1 'room/f.cpp:4: no test reaches it, and no reason is given: if [(]a > 1[)] / return 5;' <<<''
report 0 'room/f.cpp +6 +4 +66[.]7% +2 +1 +50[.]0%' <<<$'# why\nroom/f.cpp: if (a > 1) / return 5;\n  nobody gives more than one'
report 1 'a reason without need: room/f.cpp: return 6;' <<<$'room/f.cpp: if (a > 1) / return 5;\n  so\nroom/f.cpp: return 6;\n  so'
report 1 'no reason: room/f.cpp: if [(]a > 1[)] / return 5;' <<<'room/f.cpp: if (a > 1) / return 5;'

[[ $failures -eq 0 ]] || exit 1
echo "coverage: lines without a reason and reasons without a line are found"
