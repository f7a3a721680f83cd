#!/usr/bin/env bash
# The window as a person uses it: a display of its own, real keys, a real mouse, and pictures of what is to be seen.
#
#   window_test.sh PANOTRA CASE
#
# CASE is the name of a function below, with hyphens. Whatever takes time is waited for, not slept over.
set -euo pipefail
panotra=$1 case=$2
domain=net.qorvath.panotra

# shellcheck source=tests/window/window_support.sh
source "$(dirname "${BASH_SOURCE[0]}")/window_support.sh"

# A strip across the middle of the phone's screen: the panel of the mixer is there, and the host's indicator.
middle=(400 350 240 40)

# What a press shows goes away by itself, on a slow machine before it was photographed: each try presses.
press_changes_middle() {
    xdotool key Up
    photograph now
    [[ $(differences before now "${middle[@]}") -gt 2000 ]]
}
middle_is_as_before() {
    photograph now
    [[ $(differences before now "${middle[@]}") -eq 0 ]]
}

level_of() {
    plistutil --format xml --infile "preferences/$domain.plist" |
        awk -F '[<>]' -v key="$1" 'found { print $3; exit } $3 == key { found = 1 }'
}

a_press_shows_the_mixer() {
    open_window
    photograph before
    xdotool keydown Up
    wait_for "the press" in_recording "press up"
    wait_for "the mixer's window" in_trace '"event":"windowShown"'
    ! in_recording "release up" || fail "the key is still down"
    xdotool keyup Up
    wait_for "the release" in_recording "release up"
    wait_for "the mixer" press_changes_middle
    # Nobody does anything, and it goes away by itself.
    wait_for "the home screen as it was" middle_is_as_before
    in_trace '"event":"perform","selector":"releaseObjects"' || fail "the mixer is still there"
    close_window
}

a_drag_reaches_the_property_list() {
    open_window
    xdotool key g
    wait_for "the mixer" in_trace '"event":"windowShown"'
    # A panel that is still fading in takes no touch: first the blur comes, then the panel.
    has_faded_in() { [[ $(grep -cF '"event":"animationEnd"' trace.jsonl) -ge 2 ]]; }
    wait_for "the end of its fade" has_faded_in
    wait_for "its levels" test -s "preferences/$domain.plist"
    photograph before
    # The slider of the ringtone, from three quarters to about a fifth.
    point_at 470 519
    xdotool mousedown 1
    wait_for "the finger" in_trace '"view":"_volumeView7"'
    point_at 440 519
    point_at 418 519
    has_dragged() { awk -v level="$(level_of volume7)" 'BEGIN { exit !(level > 0.05 && level < 0.4) }'; }
    wait_for "the level in the property list" has_dragged
    xdotool mouseup 1
    wait_for "the finger's end" in_recording "touch up"
    shows_level() {
        photograph now
        [[ $(differences before now 390 500 130 40) -gt 500 ]]
    }
    wait_for "the slider at its level" shows_level
    close_window
    [[ $(level_of volume8) == 0.875* ]] || fail "another level is $(level_of volume8)"
}

another_process_is_obeyed() {
    open_window
    "$panotra" prefs set --prefs preferences $domain activeStyle int 1
    wait_for "the announcement" in_recording "notify $domain.settingschanged"
    in_recording "pref $domain activeStyle int 1" || fail "the change is not recorded"
    photograph before
    xdotool key g
    wait_for "the mixer" in_trace '"event":"windowShown"'
    # The banner stands above the middle of the screen, which stays as it was.
    shows_banner() {
        photograph now
        [[ $(differences before now 360 100 320 60) -gt 5000 && $(differences before now 400 560 240 60) -eq 0 ]]
    }
    wait_for "the banner" shows_banner
    close_window
    echo "expect globals.activeStyle 1" >>recording
    "$panotra" play recording --trace /dev/null || fail "the recorded phone does not obey"
}

a_recording_gives_the_same_trace() {
    "$panotra" prefs set --prefs preferences $domain volume1 float 0.3
    open_window
    local key
    for key in Up 3 p Down p 3 n m m c t r s; do
        xdotool key "$key"
    done
    wait_for "the last key" in_recording shake
    xdotool key d r r r g
    wait_for "the mixer" in_recording "activator net.qorvath.panotra.presentmixer"
    point_at 460 519
    xdotool mousedown 1
    point_at 430 519
    point_at 490 521
    xdotool mouseup 1
    wait_for "the finger's end" in_recording "touch up"
    # A setting, by the mouse: the third skin.
    point_at 1048 100
    xdotool click 1
    wait_for "the setting" in_recording "pref $domain mixerSkin int 2"
    close_window
    "$panotra" play recording --format json --trace again.jsonl || fail "the recording does not play"
    cmp trace.jsonl again.jsonl || fail "another trace"
}

a_key_starts_the_next_system() {
    open_display
    # A phone that is recorded stays the one that it is.
    "$panotra" window --ios 13 --prefs preferences --statistics 2>complaints &
    window_process=$!
    wait_for "the window" see_window
    wait_for "its picture" shows_something
    photograph before
    xdotool key o
    # Each phone tells its figures when it ends.
    wait_for "the end of the first phone" has_line complaints
    shows_its_name() { [[ $(xdotool getwindowname "$window") == "Panotra - 6, iOS 14" ]]; }
    wait_for "the name of the next system" shows_its_name
    close_window
    [[ $(grep -c '^panotra: ' complaints) -eq 2 ]] || fail "not two phones"
}

the_indicator_without_the_mixer() {
    "$panotra" prefs set --prefs preferences $domain replaceHUD bool no
    open_window
    photograph before
    xdotool key Up
    wait_for "the indicator" in_trace '"event":"indicator"'
    wait_for "its picture" press_changes_middle
    ! in_trace '"event":"windowShown"' || fail "the mixer is there, too"
    wait_for "its end" middle_is_as_before
    close_window
}

nothing_wakes_an_idle_window() {
    open_window
    expect_no_wake_up
    close_window
}

a_shortcut_is_no_key() {
    open_window
    xdotool key ctrl+c alt+c super+c ctrl+x s
    wait_for "the key alone" in_recording shake
    ! grep -q '^category ' recording || fail "a shortcut was taken for the key"
    # What went down alone comes up whatever else is held by then.
    xdotool keydown Up keydown Control_L keyup Up keyup Control_L
    wait_for "the release" in_recording "release up"
    close_window
}

a_shortcut_ends_the_window() {
    for shortcut in ctrl+q ctrl+w; do
        open_window_with --prefs preferences
        xdotool key "$shortcut"
        status=0
        wait "$window_process" || status=$?
        window_process=
        [[ $status -eq 0 ]] || fail "$shortcut ended the window with status $status"
    done
}

a_held_key_repeats() {
    open_window
    xdotool keydown Up
    has_repeated() { [[ $(grep -cFx "press up" recording) -ge 4 ]]; }
    wait_for "the key's repeats" has_repeated
    xdotool keyup Up
    wait_for "its release" in_recording "release up"
    grep -qFx "wait 0.5" recording || fail "it did not wait half a second"
    grep -qFx "wait 0.1" recording || fail "it does not repeat ten times a second"
    local presses
    presses=$(grep -cFx "press up" recording)
    sleep 0.3
    [[ $(grep -cFx "press up" recording) -eq $presses ]] || fail "it repeats after it was let go"
    # The same by the mouse, on the phone's own button.
    point_at 317 265
    xdotool mousedown 1
    has_repeated() { [[ $(grep -cFx "press down" recording) -ge 3 ]]; }
    wait_for "the mouse's repeats" has_repeated
    xdotool mouseup 1
    wait_for "its release" in_recording "release down"
    close_window
    "$panotra" play recording --format json --trace again.jsonl || fail "the recording does not play"
    cmp trace.jsonl again.jsonl || fail "another trace"
}

other_looks_are_seen_at_once() {
    open_window
    xdotool key g
    wait_for "the mixer" in_trace '"event":"windowShown"'
    has_faded_in() { [[ $(grep -cF '"event":"animationEnd"' trace.jsonl) -ge 2 ]]; }
    wait_for "the end of its fade" has_faded_in
    "$panotra" prefs set --prefs preferences $domain mixerSkin int 1
    is_shown_anew() { [[ $(grep -cF '"event":"windowShown"' trace.jsonl) -eq 2 ]]; }
    wait_for "the mixer in its new skin" is_shown_anew
    close_window
    "$panotra" play recording --format json --trace again.jsonl || fail "the recording does not play"
    cmp trace.jsonl again.jsonl || fail "another trace"
}

# At three sizes and two scales the phone is there, and what is done to it happens again.
every_size_has_a_phone() {
    local size scale
    for size in 480x640 1100x740 1310x870; do
        for scale in 1 2; do
            rm -rf preferences .local recording trace.jsonl
            mkdir -p .local/state/panotra
            echo "0 0 ${size/x/ }" >.local/state/panotra/window
            open_window --scale $scale
            [[ $(xdotool getwindowgeometry --shell "$window" | grep -E 'WIDTH|HEIGHT' | tr '\n' ' ') == "WIDTH=${size%x*} HEIGHT=${size#*x} " ]] ||
                fail "the window is not $size"
            photograph before
            # In a narrow one the phone stands in the left half.
            local width=${size%x*} height=${size#*x}
            local x=$((width * 42 / 100))
            [[ $width -gt 500 ]] || x=$((width * 24 / 100))
            xdotool mousemove --window "$window" $x $((height / 2)) mousedown 1
            wait_for "the finger at $size, scale $scale" in_trace '"event":"hit"'
            xdotool mouseup 1
            xdotool key Tab Tab Return i Escape
            xdotool key g
            wait_for "the mixer" in_trace '"event":"windowShown"'
            close_window
            "$panotra" play recording --format json --trace again.jsonl || fail "the recording does not play"
            cmp trace.jsonl again.jsonl || fail "another trace"
        done
    done
}

size_and_place_are_remembered() {
    open_window_with --prefs preferences
    xdotool windowsize --sync "$window" 700 600 windowmove --sync "$window" 50 60
    close_window
    [[ $(<.local/state/panotra/window) == "50 60 700 600" ]] || fail "remembered is $(<.local/state/panotra/window)"
    open_window_with --prefs preferences
    [[ $(xdotool getwindowgeometry --shell "$window" | grep -E '^(X|Y|WIDTH|HEIGHT)=' | tr '\n' ' ') == "X=50 Y=60 WIDTH=700 HEIGHT=600 " ]] ||
        fail "it stands elsewhere"
    close_window
    # One that nobody could reach is forgotten.
    echo "5000 5000 700 600" >.local/state/panotra/window
    open_window_with --prefs preferences
    [[ $(xdotool getwindowgeometry --shell "$window" | sed -n 's/^X=//p') -lt 1000 ]] || fail "it stands beside the display"
    close_window
}

a_step_sounds_as_loud_as_its_level() {
    open_display
    SDL_AUDIODRIVER=disk SDL_DISKAUDIOFILE=$PWD/heard SDL_DISKAUDIODELAY=1 "$panotra" window --prefs preferences --sound 2>complaints &
    window_process=$!
    await_window
    [[ ! -e heard ]] || fail "a sound before anything happened"
    xdotool key Up
    sounds() { [[ -s heard && $(tr -d '\0' <heard | head -c 2000 | wc -c) -eq 2000 ]]; }
    wait_for "the step's tone" sounds
    # What is silent again wakes nobody.
    expect_no_wake_up
    close_window
    SDL_AUDIODRIVER=none "$panotra" window --prefs preferences --sound 2>complaints &
    window_process=$!
    await_window
    xdotool key Up
    close_window
}

a_window_without_its_folder_says_so() {
    open_window
    rm -r preferences
    is_told() { grep -qE '^panotra: .*/preferences: the folder is gone; ' complaints; }
    wait_for "the complaint" is_told
    close_window
}

a_level_beyond_all_numbers() {
    "$panotra" prefs set --prefs preferences $domain volume1 float 1e39
    open_window
    xdotool key 3 3 s
    wait_for "the keys" in_recording shake
    in_recording "announce Audio/Video RouteChange nil" || fail "the level has a number"
    close_window
    "$panotra" play recording --trace /dev/null || fail "the recording does not play"
}

trouble_is_one_line() {
    echo "no folder" >file
    echo "what was recorded before" >kept
    local without_display=(env -u DISPLAY -u WAYLAND_DISPLAY -u SDL_VIDEODRIVER timeout 20)
    for display in "" DISPLAY=:nowhere SDL_VIDEODRIVER=x11; do
        # shellcheck disable=SC2086 # an empty word sets nothing
        expect_one_line 3 '^panotra: no display to open a window on: ' \
            "${without_display[@]}" env $display "$panotra" window --prefs preferences --record kept --force
    done
    grep -qFx "what was recorded before" kept || fail "a window that did not open has emptied the recording"
    expect_one_line 3 '^panotra: file/preferences: Not a directory$' "$panotra" window --prefs file/preferences
    expect_one_line 3 '^panotra: file: Not a directory$' "$panotra" window --prefs file
    expect_one_line 3 '^panotra: no home folder' env -u HOME -u XDG_DATA_HOME "$panotra" window
    expect_one_line 2 '^panotra: ' "$panotra" window --frobnicate
    expect_one_line 2 '^panotra: ' "$panotra" window --record
    expect_one_line 2 '^panotra: --record: kept is there already' "$panotra" window --prefs preferences --record kept
    expect_one_line 2 '^panotra: --trace: kept is there already' "$panotra" window --prefs preferences --trace kept
    expect_one_line 2 '^panotra: --screen: found "0x667@2", expected ' "$panotra" window --prefs preferences --screen 0x667@2
    expect_one_line 3 '^panotra: file: ' "$panotra" window --prefs preferences --wallpaper file
    ln -s kept soft
    ln kept hard
    ln -s unborn first
    ln -s unborn second
    cp kept wall.png
    for files in "--record kept --trace kept" "--record kept --trace soft" "--record hard --trace ./kept" \
        "--record unborn --trace unborn" "--record first --trace second" "--record /dev/stdout --trace /dev/stdout" \
        "--record wall.png --wallpaper wall.png" "--trace wall.png --wallpaper wall.png"; do
        # shellcheck disable=SC2086 # several words
        expect_one_line 2 ' would overwrite --' "${without_display[@]}" "$panotra" window --prefs preferences $files
    done
    for option in --record --trace; do
        expect_one_line 2 'cannot be a file of the preferences' \
            "${without_display[@]}" "$panotra" window --prefs preferences $option preferences/$domain.plist
    done
    [[ ! -e unborn && ! -e preferences/$domain.plist ]] || fail "a mistake in the command line has made a file"
    expect_one_line 3 '^panotra: no display' \
        "${without_display[@]}" "$panotra" window --prefs preferences --record /dev/null --trace /dev/null
    expect_one_line 2 'found "--recrod", .*did you mean --record' "$panotra" window --recrod kept
    cat >fonts.conf <<<'<?xml version="1.0"?><!DOCTYPE fontconfig SYSTEM "fonts.dtd"><fontconfig></fontconfig>'
    expect_one_line 3 '^panotra: no font is installed' \
        env FONTCONFIG_FILE="$PWD/fonts.conf" "$panotra" window --prefs preferences
    open_display
    expect_one_line 2 '^panotra: --screen: the screen has sides' \
        "$panotra" window --prefs unmade --record kept --screen 99999x9@2
    [[ ! -e unmade ]] || fail "a screen that is too large has preferences"
    expect_one_line 3 '^panotra: no/recording: there is no folder no$' \
        "$panotra" window --prefs preferences --record no/recording
    expect_one_line 3 '^panotra: no/trace: there is no folder no$' \
        "$panotra" window --prefs preferences --record kept --trace no/trace --force
    grep -qFx "what was recorded before" kept || fail "a window that did not open has emptied the recording"
}

"${case//-/_}"
