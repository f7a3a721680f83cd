#!/usr/bin/env bash
# What an announcement and a step of a drag cost two processes: the same, to the last message and allocation.
#
#     same_cost.sh OBJC_TESTS PROCESS OTHER-PROCESS
#
# A process is WithoutASystem, iOS12 or iOS16. Exit status 1: the costs differ. 2: one was not counted.
set -euo pipefail
program=$1

cost_on() {
    "$program" --gtest_filter="Each/CrossingsOnSystem.*/$1" | grep ' messages, ' ||
        { echo "the messages were not counted, or the test failed: $1" >&2; exit 2; }
}

first=$(cost_on "$2")
second=$(cost_on "$3")
[[ $(wc -l <<< "$first") -eq 3 ]] || { echo "three costs were expected: $first" >&2; exit 2; }
diff <(echo "$first") <(echo "$second")
echo "the same: ${first//$'\n'/; }"
