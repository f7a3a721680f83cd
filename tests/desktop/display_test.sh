#!/usr/bin/env bash
# What `panotra desktop` shows on a display in memory, beside a real sound server: its phone, by real keys, and how long
# it sleeps.
#
#   display_test.sh PANOTRA CASE
#
# CASE is the name of a function below, with hyphens.
set -euo pipefail
panotra=$1 case=$2
domain=net.qorvath.panotra
tests=$(dirname "${BASH_SOURCE[0]}")/..
# shellcheck source=tests/window/window_support.sh
source "$tests/window/window_support.sh"
server_process=
trap '[[ -z $server_process ]] || kill -KILL "$server_process"; clean_up' EXIT

begin_server() {
    export XDG_RUNTIME_DIR=$PWD PULSE_SERVER=unix:$PWD/pulse/native
    cat >pulse.conf <<'END'
load-module module-native-protocol-unix auth-anonymous=1
load-module module-null-sink sink_name=box sink_properties="device.form_factor=speaker"
load-module module-null-sink sink_name=phones sink_properties="device.form_factor=headphone"
END
    pulseaudio -n -F pulse.conf --daemonize=no --exit-idle-time=-1 --use-pid-file=no \
        --realtime=no --high-priority=no --disable-shm=yes 2>server.log &
    server_process=$!
    wait_for "the sound server" has_default box
    pactl set-sink-volume box 32768
}
has_default() { pactl set-default-sink "$1" 2>/dev/null; }
volume_is() { [[ $(pactl get-sink-volume "$1") == *"left: $2 "* ]]; }
knows() { "$panotra" desktop --status 2>/dev/null | grep -qFx -- "$1"; }

open_phone() {
    open_display
    "$panotra" desktop --phone --prefs preferences 2>complaints &
    window_process=$!
    await_window
    wait_for "the server" knows "Output: box"
    # Without a manager of windows the keyboard is nobody's.
    xdotool windowfocus --sync "$window"
}
middle=(400 350 240 40)
shows_mixer() {
    photograph now
    [[ $(differences before now "${middle[@]}") -gt 2000 ]]
}

a_phone_is_wired_to_the_sound_of_the_computer() {
    begin_server
    open_phone
    photograph before
    xdotool key Up
    wait_for "the server's volume" volume_is box 36864
    wait_for "the mixer" shows_mixer
    # What is heard where is not chosen on the phone: the keys do nothing, the next one does.
    xdotool key 3 p c Down Down
    wait_for "the server's volume" volume_is box 28672
    knows "Route: Speaker" || fail "a key has chosen another route"
    knows "Category: Audio/Video" || fail "a key has chosen what plays"
    pactl set-default-sink phones
    wait_for "the other output" knows "Route: Headphone"
    pactl set-sink-volume phones 20000
    wait_for "its level" knows "  Audio/Video, Headphone or Headset: 31% (20000 of 65536)"
    pactl set-default-sink box
    pactl set-sink-volume phones 50000
    pactl set-default-sink phones
    wait_for "the level that is put back" volume_is phones 20000
    # The phone is told of settings, by its panel and by others.
    point_at 1048 100
    xdotool click 1
    has_skin() { [[ $("$panotra" prefs --prefs preferences get $domain mixerSkin) == 2 ]]; }
    wait_for "the skin that was chosen in the panel" has_skin
    kill "$window_process"
    status=0
    wait "$window_process" || status=$?
    window_process=
    [[ $status -eq 0 && ! -s complaints ]] || fail "it ended with status $status"
    volume_is phones 20000 || fail "leaving has changed the volume"
}

a_second_start_shows_the_mixer_of_the_phone() {
    begin_server
    open_phone
    photograph before
    "$panotra" desktop || fail "the second start ended with status $?"
    wait_for "the mixer" shows_mixer
    "$panotra" desktop --phone || fail "the third start ended with status $?"
    shows_mixer || fail "the third start has sent it away"
    close_window
}

# The mixer above other windows.
open_overlay() {
    open_display
    "$panotra" desktop --prefs preferences 2>complaints &
    window_process=$!
    wait_for "the server" knows "Output: box"
}
close_overlay() {
    kill "$window_process"
    status=0
    wait "$window_process" || status=$?
    window_process=
    [[ $status -eq 0 && ! -s complaints ]] || fail "it ended with status $status"
}

another_process_is_obeyed_at_once() {
    begin_server
    open_overlay
    local height
    for style in 0:420 1:121; do
        "$panotra" prefs --prefs preferences set $domain activeStyle int "${style%:*}"
        has_style() {
            "$panotra" desktop || fail "a start beside it ended with status $?"
            see_window && height=$(xdotool getwindowgeometry --shell "$window" | sed -n 's/^HEIGHT=//p') &&
                [[ $height -lt ${style#*:}+40 && $height -gt ${style#*:}-40 ]]
        }
        wait_for "the style $style" has_style
    done
    close_overlay
}

nothing_wakes_a_mixer_that_nobody_sees() {
    begin_server
    open_overlay
    expect_no_wake_up
    close_overlay
}

nothing_wakes_a_mixer_that_stays() {
    begin_server
    open_overlay
    "$panotra" desktop || fail "the second start ended with status $?"
    wait_for "the mixer" see_window
    expect_no_wake_up
    see_window || fail "the mixer is gone"
    close_overlay
}

nothing_wakes_an_idle_phone() {
    begin_server
    open_phone
    expect_no_wake_up
    close_window
}

"${case//-/_}"
