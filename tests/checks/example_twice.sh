#!/usr/bin/env bash
# The example, played on two days with the same preferences: the second continues from the levels of the first, and
# plistutil reads what both leave behind.
#
#   example_twice.sh ROOT PANOTRA
source "$(dirname "${BASH_SOURCE[0]}")/rooms.sh"
root=$1 panotra=$2

scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
preferences=$scratch/preferences
domain=$preferences/net.qorvath.panotra.plist
mkdir "$preferences"

found=0
complain() {
    echo "$1" >&2
    found=$((found + 1))
}

# Plays a day; its trace is in the file named after it, its levels in the array named after it.
play() {
    local day=$1
    declare -n levels=$day
    "$panotra" play "$root/examples/headphones.scenario" --prefs "$preferences" --format json \
        --shots "$scratch/$day.pictures" >"$scratch/$day"
    plistutil --format xml --infile "$domain" >"$scratch/$day.plist"
    local name
    for name in morning quieter-messages louder-call evening; do
        [[ -s $scratch/$day.pictures/$name.png ]] || complain "$day: there is no picture $name.png"
    done
    local slot
    for ((slot = 0; slot < 12; slot++)); do
        levels[slot]=$(sed -n "/<key>volume$slot<\/key>/{n;s/.*<real>\(.*\)<\/real>.*/\1/p}" "$scratch/$day.plist")
        [[ -n ${levels[slot]} ]] || complain "$day: volume$slot is not in the property list"
    done
}

# The value that the day's trace first reports as written to a slot.
first_write() {
    grep -m1 "\"key\":\"volume$2\"" "$scratch/$1" | sed 's/.*"value":\([0-9.e+-]*\).*/\1/'
}

same() { awk -v a="$1" -v b="$2" 'BEGIN { exit (a - b > 1e-6 || b - a > 1e-6) }'; }

# The second day's level of a slot against the first day's and a change.
expect_change() {
    local slot=$1 change=$2 expected
    expected=$(awk -v level="${first[slot]}" -v change="$change" 'BEGIN { print level + change }')
    same "${second[slot]}" "$expected" || complain "volume$slot is ${second[slot]} after the second day, expected $expected"
}

declare -a first=() second=()
play first
play second

# Before anything is remembered, a slot is seeded with the system's level; afterwards with its own.
for slot in 3 4 5 7 8 10; do
    same "${first[slot]}" 0.5 || complain "volume$slot is ${first[slot]} after the first day, seeded with 0.5"
done
same "$(first_write first 1)" 0.5625 || complain "the first day must seed the headphones with the system's level"
for ((slot = 1; slot < 12; slot++)); do
    same "$(first_write second "$slot")" "${first[slot]}" || complain "the second day must begin with volume$slot as the first left it"
done

# Two presses up with headphones, one down with the headset, one up during the call; nobody touched the rest.
expect_change 1 0.125
expect_change 2 -0.0625
expect_change 6 0.0625
for slot in 0 3 4 5 7 8 9 10 11; do
    expect_change "$slot" 0
done

# What the headphones' level does when they are plugged in: nothing on the first day, which knows no other level.
plugged_in() { sed -n '/"reason":"RouteChange"/{p;q}; /"event":"setVolume"/p' "$scratch/$1"; }
! plugged_in first | grep -q '"event":"setVolume"' || complain "the first day knows no other level for the headphones"
plugged_in second | grep -q '"event":"setVolume"' || complain "the second day must put the headphones back to their level"

conclude "differences from two days as they should be" "$found"
