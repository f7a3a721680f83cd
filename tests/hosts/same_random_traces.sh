#!/usr/bin/env bash
# Two programs play random scenarios: both must take every one, and their traces be the same.
#
#   same_random_traces.sh WRITER PROGRAM PROGRAM FIRST-SEED COUNT
#
# COUNT is 1 or more.
set -uo pipefail
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
"$1" "$folder" "$4" "$5" || exit 1
different=0
[[ $5 -gt 0 ]] || { echo "no scenarios" >&2; exit 2; }
for ((seed = $4; seed < $4 + $5; seed++)); do
    first=$("$2" play --format json "$folder/$seed" 2>&1; echo "status $?")
    second=$("$3" play --format json "$folder/$seed" 2>&1; echo "status $?")
    if [[ $first != *"status 0" ]]; then
        echo "seed $seed is refused: ${first:0:200}"
        different=$((different + 1))
    elif [[ $first != "$second" ]]; then
        echo "seed $seed:"
        diff <(echo "$first") <(echo "$second") | head -5
        different=$((different + 1))
    fi
done
echo "$different of $5 scenarios differ or are refused"
[[ $different -eq 0 ]]
