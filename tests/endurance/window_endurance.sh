#!/usr/bin/env bash
# The window for a long time under a person's hands that do anything: it neither grows nor gets slower.
#
#   window_endurance.sh PANOTRA SECONDS [SEED]
#
# Keys and a mouse, five things a second, on a display in memory. What the process holds and how much of the processor it
# takes for each thing are written down twenty times. The last line says both; status 1: it grew, or became slower.
set -euo pipefail
panotra=$1 seconds=$2 seed=${3-1}
case="window-endurance"
# shellcheck source=tests/window/window_support.sh
source "$(dirname "${BASH_SOURCE[0]}")/../window/window_support.sh"
deadline=$((2 * seconds + 150))

# All controls of the phone, and none that ends the window, starts another phone or writes files.
keys=(Up Down m s r l 1 2 3 4 5 6 c p n g d t Up Down g)
samples=20
RANDOM=$seed

somewhere() { echo $((330 + RANDOM % 370)) $((60 + RANDOM % 680)); }
do_anything() {
    local x y
    case $((RANDOM % 4)) in
    0 | 1) xdotool key "${keys[RANDOM % ${#keys[@]}]}" ;;
    2)
        read -r x y < <(somewhere)
        xdotool mousemove --window "$window" "$x" "$y" click 1
        ;;
    3)
        read -r x y < <(somewhere)
        xdotool mousemove --window "$window" "$x" "$y" mousedown 1 mousemove_relative -- $((RANDOM % 120 - 60)) 5 \
            sleep 0.05 mousemove_relative -- $((RANDOM % 60 - 30)) 0 mouseup 1
        ;;
    esac
}
resident_kilobytes() { awk '$1 == "VmRSS:" { print $2 }' "/proc/$window_process/status"; }
# Of the processor, in hundredths of a second.
time_taken() { awk '{ print $14 + $15 }' "/proc/$window_process/stat"; }

open_window_with --statistics
done_things=0
start=$SECONDS
for ((sample = 1; sample <= samples; sample++)); do
    things_before=$done_things time_before=$(time_taken)
    while [[ $((SECONDS - start)) -lt $((seconds * sample / samples)) ]]; do
        kill -0 "$window_process" 2>/dev/null || fail "the window is gone after $((SECONDS - start)) seconds"
        do_anything
        done_things=$((done_things + 1))
        sleep 0.15
    done
    echo "$(resident_kilobytes) $((done_things - things_before)) $(($(time_taken) - time_before))" >>sizes
    [[ ! -t 2 ]] || printf '\r%d of %d seconds, %d kB' $((SECONDS - start)) "$seconds" "$(resident_kilobytes)" >&2
done
[[ ! -t 2 ]] || echo >&2
close_window
[[ $(wc -l <complaints) -eq 1 ]] || fail "complaints, beside the statistics"

# The first quarter is the start: fonts, pictures, each style and system for the first time.
awk -v things="$done_things" -v seconds="$seconds" -v statistics="$(<complaints)" '
    NR > 5 && NR <= 10 { early += $3; early_things += $2; if ($1 > early_size) early_size = $1 }
    NR > 15 { late += $3; late_things += $2; if ($1 > late_size) late_size = $1 }
    END {
        early_cost = 10 * early / early_things
        late_cost = 10 * late / late_things
        printf "%d seconds, %d things: %d kB in the second quarter, %d kB in the last; %.1f ms of the processor for each " \
            "thing, then %.1f ms; %s\n", seconds, things, early_size, late_size, early_cost, late_cost, statistics
        exit !(late_size <= early_size * 1.1 && late_cost <= early_cost * 1.5)
    }' sizes
