#!/usr/bin/env bash
# Includes point one way. A table says what each room may include; whatever it does not name is a violation.
#
#   layering.sh ROOT
source "$(dirname "${BASH_SOURCE[0]}")/rooms.sh"
root=$1

# A room, or one file | which libraries it may use | the rooms it may include from.
# The longest name that fits a file decides, so that a folder inside a room belongs to it until it gets its own row.
table='
facts                       | standard | facts
platform                    | standard | platform facts
model                       | standard | model platform facts
views                       | standard | views model platform facts
controller                  | standard | controller views model platform facts
hooks                       | standard | hooks controller views model platform facts
platform/simulated          | standard | platform/simulated platform simulator/device facts
platform/ios                | any      | platform/ios platform facts
doctor                      | any      | doctor hooks platform/ios platform facts
simulator/text              | standard | simulator/text
simulator/preferences       | any      | simulator/preferences facts simulator/text
simulator/systems           | standard | simulator/systems
simulator/device            | any      | simulator/device simulator/preferences simulator/systems facts simulator/text
simulator/scenario          | any      | simulator/scenario simulator/device simulator/systems facts simulator/text
simulator/render            | any      | simulator/render simulator/device facts
simulator/picture           | any      | simulator/picture simulator/render simulator/scenario simulator/device simulator facts simulator/text
simulator/gallery           | any      | simulator/gallery simulator/film simulator/window simulator/picture simulator/render simulator/scenario simulator/device simulator facts simulator/text
simulator/film              | any      | simulator/film simulator/window simulator/picture simulator/render simulator/scenario simulator/device simulator facts simulator/text
simulator/window            | any      | simulator/window simulator/picture simulator/render simulator/scenario simulator/device simulator/systems simulator/preferences simulator facts simulator/text
simulator/sound             | any      | simulator/sound simulator/device facts simulator/text
simulator/desktop           | any      | simulator/desktop simulator/sound simulator/window simulator/render simulator/picture simulator/scenario simulator/device simulator/preferences simulator facts simulator/text
simulator/desktop/main.cpp  | any      | simulator/desktop simulator/commands simulator
simulator/commands          | any      | simulator/commands simulator/film simulator/desktop simulator/systems simulator/window simulator/picture simulator/scenario simulator/preferences simulator facts simulator/text
simulator                   | any      | simulator simulator/scenario simulator/device simulator/preferences facts simulator/text
simulator/main.cpp          | any      | simulator simulator/commands simulator/desktop simulator/film simulator/picture simulator/window
simulator/graphics.cpp      | any      | simulator simulator/commands simulator/film simulator/picture simulator/window
simulator/Globals.cpp       | any      | simulator simulator/scenario model platform facts
simulator/LinkedLibrary.cpp | any      | simulator hooks controller views model platform facts
'

# The seam and the logic are the same text for every host.
unconditional='^(platform/[^/]+[.]h|(facts|model|views|controller|hooks)/.*)$'

violations() {
    sources "$root" | grep -vE '^(packaging|tests|fuzz|bench)/' | (cd "$root" && xargs awk -v table="$table" -v unconditional="$unconditional" '
        function trim(text) { gsub(/^ +| +$/, "", text); return text }

        # The name of the row for `path`: the longest one that it lies in or is.
        function row(path) {
            while (!(path in mayInclude) && sub(/\/?[^\/]*$/, "", path) && path != "") { }
            return path
        }

        function allows(room, target,    names, count, i) {
            count = split(mayInclude[room], names, " ")
            for (i = 1; i <= count; i++) {
                if (target == names[i])
                    return 1
            }
            return 0
        }

        function complain(text) { print FILENAME ":" FNR ": " text }

        BEGIN {
            count = split(table, lines, "\n")
            for (i = 1; i <= count; i++) {
                if (split(lines[i], cells, "|") == 3) {
                    libraries[trim(cells[1])] = trim(cells[2])
                    mayInclude[trim(cells[1])] = trim(cells[3])
                }
            }
        }

        FNR == 1 { room = row(FILENAME) }

        /^[ \t]*#[ \t]*(el)?if/ && FILENAME ~ unconditional { complain("conditional compilation: " $0) }

        /^[ \t]*#[ \t]*include/ {
            if (match($0, /"[^"]+"/)) {
                header = substr($0, RSTART + 1, RLENGTH - 2)
                target = row(header)
                if (target == "")
                    complain(header " is not named from the root of the repository")
                else if (!allows(room, target))
                    complain(room " may not include " header)
            } else if (match($0, /<[^>]+>/)) {
                header = substr($0, RSTART + 1, RLENGTH - 2)
                # A standard header is a bare word; <math.h>, <sys/stat.h> and <cairo.h> are not.
                if (libraries[room] == "standard" && header !~ /^[a-z][a-z0-9_]*$/)
                    complain(room " may include standard headers only, not <" header ">")
            } else {
                complain("an include of neither a header nor a library: " $0)
            }
        }')
}

found=$(violations)
[[ -z $found ]] || printf '%s\n' "$found" >&2
conclude "violations of the direction of includes" "$(grep -c . <<<"$found" || true)"
