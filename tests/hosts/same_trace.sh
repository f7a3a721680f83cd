#!/usr/bin/env bash
# Two programs play one scenario: traces and pictures must be the same, and both must end well.
#
#   same_trace.sh PROGRAM PROGRAM FILE
set -euo pipefail
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
play() {
    mkdir "$folder/$1"
    "$2" play --format json --shots "$folder/$1" --trace "$folder/$1/trace" "$3"
}
play first "$1" "$3"
play second "$2" "$3"
[[ -s $folder/first/trace ]]
diff -r "$folder/first" "$folder/second"
