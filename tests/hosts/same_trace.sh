#!/usr/bin/env bash
# Two programs play one scenario: the traces and the ways in which they end must be the same.
#
#   same_trace.sh PROGRAM PROGRAM FILE
set -uo pipefail
first=$("$1" play --format json "$3") || exit 1
second=$("$2" play --format json "$3") || exit 1
[[ -n $first ]] || { echo "no trace at all" >&2; exit 1; }
diff <(echo "$first") <(echo "$second")
