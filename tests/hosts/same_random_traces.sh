#!/usr/bin/env bash
# Two programs play random scenarios: the traces and the ways in which they end must be the same.
#
#   same_random_traces.sh WRITER PROGRAM PROGRAM FIRST-SEED COUNT
set -uo pipefail
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
"$1" "$folder" "$4" "$5" || exit 1
different=0
for ((seed = $4; seed < $4 + $5; seed++)); do
    first=$("$2" play --format json "$folder/$seed" 2>&1; echo "status $?")
    second=$("$3" play --format json "$folder/$seed" 2>&1; echo "status $?")
    if [[ $first != "$second" ]]; then
        echo "seed $seed:"
        diff <(echo "$first") <(echo "$second") | head -5
        different=$((different + 1))
    fi
done
echo "$different of $5 scenarios differ"
[[ $different -eq 0 ]]
