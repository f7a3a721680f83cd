# What the tests of the window share: a display in memory, a window on it, and pictures of what is to be seen. To be
# sourced by a script that has set `panotra`, `case` and `domain`. It works in a folder of its own.

scratch=$(mktemp -d)
display_process=
window_process=
clean_up() {
    [[ -z $window_process ]] || kill -KILL "$window_process" 2>/dev/null || true
    [[ -z $display_process ]] || kill "$display_process" 2>/dev/null || true
    wait 2>/dev/null || true
    rm -rf "$scratch"
}
trap clean_up EXIT
cd "$scratch"
# What libraries keep for a person, as fontconfig's cache, is not kept for the person who tests.
export HOME=$scratch
unset "${!XDG_@}"

fail() {
    echo "$case: $1" >&2
    for file in complaints recording; do
        [[ ! -s $file ]] || tail -n 40 "$file" >&2
    done
    exit 1
}

# Tries a command again and again until it succeeds. All that a case waits for together ends before the case is killed,
# which would leave its display and its window behind.
deadline=150
wait_for() {
    local what=$1
    shift
    until "$@"; do
        [[ $SECONDS -lt $deadline ]] || fail "waited in vain for $what"
        sleep 0.05
    done
}

has_line() { [[ -s $1 ]]; }
open_display() {
    Xvfb -displayfd 3 -screen 0 1320x880x24 3>display 2>/dev/null &
    display_process=$!
    wait_for "a display" has_line display
    DISPLAY=:$(<display)
    export DISPLAY SDL_VIDEODRIVER=x11
}

in_recording() { grep -qsFx -- "$1" recording; }
in_trace() { grep -qsF -- "$1" trace.jsonl; }

# Opens the window on a phone whose settings are in the folder `preferences`, with more options if there are any.
open_window() {
    [[ -n $display_process ]] || open_display
    "$panotra" window --prefs preferences --record recording --trace trace.jsonl --statistics "$@" 2>complaints &
    window_process=$!
    wait_for "the phone" in_recording launch
    await_window
}
# Opens the window with whatever is asked for.
open_window_with() {
    [[ -n $display_process ]] || open_display
    "$panotra" window "$@" >told 2>complaints &
    window_process=$!
    await_window
}
await_window() {
    wait_for "the window" see_window
    wait_for "its picture" shows_something
}
see_window() {
    kill -0 "$window_process" 2>/dev/null || fail "the window is gone"
    window=$(xdotool search --onlyvisible --name '^Panotra' 2>/dev/null | head -n 1)
    [[ -n $window ]]
}
# Answers the window's status in `status`.
end_window() {
    xdotool key q
    status=0
    wait "$window_process" || status=$?
    window_process=
}
close_window() {
    end_window
    [[ $status -eq 0 ]] || fail "the window ended with status $status"
}

# A picture of the window: a header, then rows of pixels.
photograph() { xwd -silent -id "$window" >"$1"; }
shows_something() {
    photograph now
    # The empty window is all black.
    [[ $(tail -c 200000 now | tr -d '\0' | head -c 50000 | wc -c) -eq 50000 ]]
}
header_field() { od -An -tu4 -N4 -j $((4 * $2)) --endian=big "$1" | tr -d ' '; }

# How many bytes of two photographs differ inside a rectangle of the sheet: X Y WIDTH HEIGHT in its units.
differences() {
    local header row bytes first count
    header=$(($(header_field "$1" 0) + 12 * $(header_field "$1" 19)))
    row=$(header_field "$1" 12)
    bytes=$(($(header_field "$1" 11) / 8))
    first=$(scaled "$4")
    count=$(scaled "$6")
    rows() { tail -c +$((header + first * row + 1)) "$1" | head -c $((count * row)); }
    { cmp -l <(rows "$1") <(rows "$2") || true; } | awk -v row="$row" -v bytes="$bytes" -v unit="$(unit)" \
        -v x="$3" -v width="$5" '
        {
            px = int(($1 - 1) % row / bytes) / unit
            if (px >= x && px < x + width) count++
        }
        END { print count + 0 }'
}

# Pixels a unit: the sheet is 800 units high.
unit() { xdotool getwindowgeometry --shell "$window" | awk -F= '$1 == "HEIGHT" { print $2 / 800 }'; }
# The mouse goes to a place on the sheet.
point_at() { xdotool mousemove --window "$window" "$(scaled "$1")" "$(scaled "$2")"; }
scaled() { awk -v length_in_units="$1" -v unit="$(unit)" 'BEGIN { printf "%d", length_in_units * unit }'; }

# The display may still have something to tell right after the start, and once a minute the clock of the status bar goes
# on.
expect_no_wake_up() {
    switches() { awk '/voluntary_ctxt_switches/ { sum += $2 } END { print sum }' "/proc/$window_process"/task/*/status; }
    local quiet=0 before now
    before=$(switches)
    for _ in {1..40}; do
        sleep 1
        now=$(switches)
        if [[ $now -eq $before ]]; then quiet=$((quiet + 1)); else quiet=0; fi
        [[ $quiet -lt 5 ]] || break
        before=$now
    done
    [[ $quiet -eq 5 ]] || fail "never five seconds without a wake-up"
}

# expect_one_line STATUS PATTERN COMMAND...: it ends with that status and one line of complaint, and says nothing else.
expect_one_line() {
    local status=0 expected=$1 pattern=$2
    shift 2
    "$@" >output 2>complaints || status=$?
    [[ $status -eq $expected ]] || fail "status $status instead of $expected: $*"
    [[ $(wc -l <complaints) -eq 1 && ! -s output ]] || fail "not one line: $*"
    grep -qE -- "$pattern" complaints || fail "no '$pattern': $*"
}
