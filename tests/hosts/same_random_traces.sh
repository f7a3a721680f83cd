#!/usr/bin/env bash
# Two runners of scenario tests play random scenarios: both must take every one, and their traces be the same, to the
# byte.
#
#   same_random_traces.sh WRITER RUNNER RUNNER FIRST-SEED COUNT
#
# The first plays all in one process, the second each in one of its own. COUNT is 1 or more.
set -uo pipefail
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
[[ $5 -gt 0 ]] || { echo "no scenarios" >&2; exit 2; }
mkdir "$folder/first" && "$1" "$folder/first" "$4" "$5" && cp -r "$folder/first" "$folder/second" || exit 1
"$2" --write "$folder/first"/* || exit 1
"$3" --apart --write "$folder/second"/* || exit 1
[[ $(find "$folder/first" -name trace.jsonl -size +0 | wc -l) -eq $5 ]] || { echo "traces are missing" >&2; exit 1; }
diff -r "$folder/first" "$folder/second" | head -n 20
