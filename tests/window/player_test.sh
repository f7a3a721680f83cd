#!/usr/bin/env bash
# Scenarios in the window, and what a person makes of them: watched, paused, taken over, recorded, photographed.
#
#   player_test.sh PANOTRA CASE
#
# CASE is the name of a function below, with hyphens.
set -euo pipefail
panotra=$1 case=$2
domain=net.qorvath.panotra
# shellcheck source=tests/window/window_support.sh
source "$(dirname "${BASH_SOURCE[0]}")/window_support.sh"

# Where the caption of a scenario stands, and the notices: the first stays while time does, the second goes.
caption=(290 668 480 40)
mark=(278 24 64 26)

write_scenario() {
    cat >played.scenario <<EOF
# The mixer replaces the indicator.
pref $domain replaceHUD bool yes
echo on
load
launch
# Watch it come.
press up
wait ${1-60}
release up
EOF
}

a_scenario_plays_in_real_time() {
    write_scenario 0.7
    open_window_with --play played.scenario --record recording --trace trace.jsonl --statistics
    wait_for "the end of the scenario" in_recording "release up"
    [[ ! -e $HOME/.local/share/panotra ]] || fail "its settings are not in memory"
    close_window
    [[ $(head -n 9 recording) == "$(<played.scenario)" ]] || fail "its lines are not those that were recorded"
    "$panotra" play recording --format json --trace again.jsonl || fail "the recording does not play"
    cmp trace.jsonl again.jsonl || fail "another trace"
}

time_stands_still_and_goes_on_by_lines_and_frames() {
    sed 's/^# Watch it come./wait 60\n&/' <<<"$(write_scenario && cat played.scenario)" >two.scenario
    open_window_with --play two.scenario --record recording --trace trace.jsonl
    xdotool key space Right
    wait_for "the end of the wait" in_recording "wait 60"
    sleep 0.3
    ! in_recording "press up" || fail "two lines at once"
    xdotool key Right
    wait_for "the next line" in_recording "press up"
    photograph before
    for _ in {1..12}; do xdotool key period; done
    shows_more() {
        photograph now
        [[ $(differences before now 380 60 280 500) -gt 500 ]]
    }
    wait_for "the mixer's next frames" shows_more
    ! in_recording "release up" || fail "twelve frames are a minute"
    xdotool key Right Right
    wait_for "the last line" in_recording "release up"
    # As fast as it gets, a second is over before long.
    xdotool key plus plus plus plus space
    end_window
    [[ $status -eq 0 ]] || fail "the window ended with status $status"
    "$panotra" play recording --format json --trace again.jsonl || fail "the recording does not play"
    cmp trace.jsonl again.jsonl || fail "another trace"
}

a_person_takes_over_and_goes_back_to_the_start() {
    write_scenario
    open_window_with --play played.scenario --trace trace.jsonl --record recording
    xdotool key s
    wait_for "the person's line" in_recording shake
    xdotool key Home
    sleep 0.2
    ! in_recording "release up" || fail "the scenario goes on by itself"
    close_window
    "$panotra" play recording --format json --trace again.jsonl || fail "the recording does not play"
    cmp trace.jsonl again.jsonl || fail "another trace"
    # A phone that is not recorded is started anew.
    open_window_with --play played.scenario --statistics
    xdotool key s
    photograph before
    xdotool key Home
    wait_for "the end of the first phone" has_line complaints
    close_window
    [[ $(grep -c '^panotra: ' complaints) -eq 2 ]] || fail "not two phones"
}

a_file_that_is_saved_is_played_anew() {
    write_scenario
    open_window_with --play played.scenario --watch --statistics
    photograph before
    # A mistake is told, and the old play stays.
    echo "frobnicate" >>played.scenario
    is_told() { grep -qsF 'played.scenario:10: found "frobnicate"' complaints; }
    wait_for "the mistake" is_told
    shows_notice() {
        photograph now
        [[ $(differences before now 330 590 380 50) -gt 500 ]]
    }
    wait_for "its notice" shows_notice
    [[ $(wc -l <complaints) -eq 1 ]] || fail "more than the mistake is told"
    # As editors do: another file in its place.
    sed -e '$d' -e 's/^# Watch.*/# Now something else altogether stands here./' played.scenario >new
    mv new played.scenario
    plays_anew() { [[ $(grep -c 'frames' complaints) -eq 1 ]]; }
    wait_for "the end of the first play" plays_anew
    shows_caption() {
        photograph now
        [[ $(differences before now "${caption[@]}") -gt 200 ]]
    }
    wait_for "the other caption" shows_caption
    close_window
}

nothing_wakes_a_window_that_watches_a_file() {
    printf 'load\nlaunch\n' >played.scenario
    open_window_with --play played.scenario --watch --prefs preferences
    expect_no_wake_up
    # Nor does time that stands still.
    xdotool key space
    sleep 4.5
    expect_no_wake_up
    close_window
}

pictures_and_recordings_say_where_they_went() {
    mkdir shots
    echo "kept" >shots/panotra-1.png
    open_window_with --prefs preferences --shots shots
    photograph before
    xdotool key F9
    shows_mark() {
        photograph now
        [[ $(differences before now "${mark[@]}") -gt 300 ]]
    }
    wait_for "the red mark" shows_mark
    xdotool key F12 s F9
    told_of() { grep -qsFx "$1" told; }
    wait_for "the recording" told_of "recording shots/panotra-1.scenario"
    told_of "picture shots/panotra-2.png" || fail "the picture's name is not told"
    [[ $(head -c 4 shots/panotra-2.png | tail -c 3) == PNG && $(<shots/panotra-1.png) == kept ]] ||
        fail "the picture is none, or another one is gone"
    close_window
    [[ $(wc -l <told) -eq 2 ]] || fail "more is told"
    grep -qsFx shake shots/panotra-1.scenario || fail "the recording lacks what was done"
    "$panotra" play shots/panotra-1.scenario --trace /dev/null || fail "the recording does not play"
}

trouble_with_a_scenario_is_one_line() {
    write_scenario
    local window=("$panotra" window --play)
    expect_one_line 3 '^panotra: unborn: No such file' "${window[@]}" unborn
    echo "lunch" >wrong
    expect_one_line 2 '^wrong:1: found "lunch", .*did you mean launch' "${window[@]}" wrong
    echo "screen 100000 2 1" >wrong
    expect_one_line 2 '^wrong:1: the screen has sides' "${window[@]}" wrong
    expect_one_line 2 'excludes' "${window[@]}" played.scenario --ios 13
    expect_one_line 2 '^panotra: --watch: expected a file' "${window[@]}" - --watch
    expect_one_line 2 '^panotra: --watch: a phone that is recorded' "${window[@]}" played.scenario --watch --record new
    expect_one_line 2 ' would overwrite --' "${window[@]}" played.scenario --record played.scenario --force
    expect_one_line 2 '--play' "$panotra" window --watch
    [[ ! -e new ]] || fail "a mistake in the command line has made a file"
    printf 'load\nexpect globals.replaceHUD yes\n' >wrong
    open_window_with --play wrong
    end_window
    [[ $status -eq 1 ]] || fail "an expectation that failed ends with $status"
    grep -qFx 'wrong:2: found no at globals.replaceHUD, expected yes' complaints || fail "it is not told"
}

"${case//-/_}"
