#!/usr/bin/env bash
# The settings page against the mixer itself: every control writes a key that the mixer reads, tells it of the change by
# the right notification, and shows what the mixer takes while the key is absent. That no setting lacks a control is
# proved where the page is held against the table of settings.
#
#   settings_page.sh ROOT PANOTRA
source "$(dirname "${BASH_SOURCE[0]}")/../checks/rooms.sh"
root=$1 panotra=$2
page=$root/resources/settings/Panotra.plist

scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
failures=0
fail() {
    echo "$1" >&2
    failures=$((failures + 1))
}

# CELL DOMAIN KEY NOTIFICATION TYPE DEFAULT OTHER of each control that holds a value, OTHER being a value that is not
# the default; all separated by a bar, for none of them holds one.
controls() {
    plistutil --infile "$page" --format bin --outfile "$scratch/binary" >/dev/null
    plistutil --infile "$scratch/binary" --format xml | awk '
        function text(line) { sub(/^[^>]*>/, "", line); sub(/<.*/, "", line); return line }
        /<dict>/ { delete value }
        /<key>/ { key = text($0); next }
        /<(string|integer|real)>/ { value[key] = text($0); type[key] = $0 ~ /integer/ ? "int" : $0 ~ /real/ ? "float" : "string" }
        /<(true|false)\/>/ { value[key] = /true/ ? "yes" : "no"; type[key] = "bool" }
        /<\/dict>/ && "key" in value {
            other = value["cell"] == "PSSwitchCell" ? (value["default"] == "no" ? "yes" : "no") \
                : value["cell"] == "PSSliderCell" ? value["max"] : value["validValues"]
            print value["cell"] "|" value["defaults"] "|" value["key"] "|" value["PostNotification"] "|" \
                type["default"] "|" value["default"] "|" other
            delete value
        }'
}

# What the mixer's process-wide values are in the end, one NAME:VALUE a line.
globals() {
    printf 'load\nlaunch\n%s\nstate\n' "$1" | "$panotra" play - --format json | tail -n 1 |
        sed 's/.*"globals":{\([^}]*\)}.*/\1/' | tr ',' '\n' | tr -d '"'
}

untouched=$(globals '')
count=0
while IFS='|' read -r cell domain key notification type default other; do
    count=$((count + 1))
    write() { printf 'pref %s %s %s %s\nnotify %s' "$domain" "$key" "$type" "$1" "$notification"; }
    [[ $(globals "$(write "$default")") == "$untouched" ]] || fail "$key: $default is not what the mixer takes by itself"
    changed=$(comm -13 <(sort <<<"$untouched") <(globals "$(write "$other")" | sort))
    [[ $(grep -c . <<<"$changed") -eq 1 ]] || fail "$key: a $cell that changes ${changed:-nothing}"
done < <(controls)

# The drawing of the page in the documents.
if ! cmp <("$root/scripts/draw-settings-page" "$page") "$root/docs/settings-page.svg"; then
    fail "docs/settings-page.svg is out of date; scripts/draw-settings-page tells how it is made"
fi

conclude "mistakes of the settings page, which has $count controls" "$failures"
