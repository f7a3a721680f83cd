#!/usr/bin/env bash
# Runs a program on a display of its own, in memory, with a folder of its own for all that it keeps.
#
#   on_a_display.sh PROGRAM ARGUMENT...
set -euo pipefail

scratch=$(mktemp -d)
display_process=
clean_up() {
    [[ -z $display_process ]] || kill "$display_process" 2>/dev/null || true
    wait 2>/dev/null || true
    rm -rf "$scratch"
}
trap clean_up EXIT
export HOME=$scratch
unset "${!XDG_@}" "${!WAYLAND_@}"

Xvfb -displayfd 3 -noreset -screen 0 800x600x24 3>"$scratch/display" 2>/dev/null &
display_process=$!
until [[ -s $scratch/display ]]; do
    kill -0 "$display_process" 2>/dev/null || { echo "no display in memory" >&2; exit 1; }
    sleep 0.05
done
DISPLAY=:$(<"$scratch/display")
export DISPLAY SDL_VIDEODRIVER=x11
"$@"
