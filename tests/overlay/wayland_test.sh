#!/usr/bin/env bash
# The overlay under a Wayland compositor, which shows its desktop on an X display in memory: that is how it gets a mouse,
# and how pictures of it are taken. A sound server says when the mixer is to be seen.
#
#   wayland_test.sh PANOTRA CASE
#
# CASE is the name of a function below, with hyphens.
set -euo pipefail
panotra=$1 case=$2
tests=$(dirname "${BASH_SOURCE[0]}")/..
# shellcheck source=tests/window/window_support.sh
source "$tests/window/window_support.sh"
helpers=()
trap '((${#helpers[@]} == 0)) || kill -KILL "${helpers[@]}" 2>/dev/null; clean_up' EXIT

photograph() { xwd -silent -root >"$1"; }
begin_desktop() {
    export XDG_RUNTIME_DIR=$PWD PULSE_SERVER=unix:$PWD/pulse/native
    unset "${!WAYLAND_@}"
    chmod 700 .
    printf '%s\n' 'load-module module-native-protocol-unix auth-anonymous=1' \
        'load-module module-null-sink sink_name=box sink_properties="device.form_factor=speaker"' >pulse.conf
    pulseaudio -n -F pulse.conf --daemonize=no --exit-idle-time=-1 --use-pid-file=no --realtime=no --high-priority=no \
        --disable-shm=yes 2>server.log &
    helpers+=($!)
    open_display
    # No clock that goes on, and no picture behind: what changes is ours.
    printf '%s\n' '[shell]' 'panel-position=none' 'background-color=0xff336699' >weston.ini
    weston --backend=x11-backend.so --use-pixman --width=800 --height=600 --idle-time=0 --socket=compositor \
        --config="$PWD/weston.ini" --log=weston.log >compositor.log 2>&1 &
    helpers+=($!)
    wait_for "the compositor" test -S compositor
    wait_for "the sound server" pactl set-sink-volume box 32768
    is_drawn() {
        photograph before
        sleep 0.2
        photograph now
        [[ $(tr -d '\0' <now | head -c 500000 | wc -c) -eq 500000 ]] && cmp -s before now
    }
    wait_for "the empty desktop" is_drawn
}
begin_mixer() {
    env -u DISPLAY SDL_VIDEODRIVER=wayland WAYLAND_DISPLAY=compositor \
        "$panotra" desktop --prefs preferences 2>complaints &
    window_process=$!
    wait_for "the mixer" knows "Output: box"
}
knows() { "$panotra" desktop --status 2>/dev/null | grep -qFx -- "$1"; }
end_mixer() {
    kill "$window_process"
    status=0
    wait "$window_process" || status=$?
    window_process=
    [[ $status -eq 0 && ! -s complaints ]] || fail "it ended with status $status"
}

# Bytes of two photographs of the whole desktop that differ.
bytes_changed() {
    photograph now
    { cmp -l before now || true; } | wc -l
}
# A panel is larger than a tenth of this desktop.
shows_panel() { [[ $(bytes_changed) -gt 100000 ]]; }
is_empty() { [[ $(bytes_changed) -eq 0 ]]; }

a_panel_comes_and_goes() {
    begin_desktop
    begin_mixer
    pactl set-sink-volume box 40000
    wait_for "the panel" shows_panel
    wait_for "its end" is_empty
    "$panotra" desktop || fail "the second start ended with status $?"
    wait_for "the panel that was asked for" shows_panel
    "$panotra" desktop || fail "the third start ended with status $?"
    wait_for "the end of that" is_empty
    end_mixer
}

"${case//-/_}"
