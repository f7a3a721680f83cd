#!/usr/bin/env bash
# Includes point one way. A table says what each room may include; whatever it does not name is a violation.
#
#   layering.sh ROOT
source "$(dirname "${BASH_SOURCE[0]}")/rooms.sh"
root=$1

# A room, or one file | the rooms it may include from, NAME/... with all rooms in it | which libraries it may use.
# The longest name that fits a file decides, so that a folder inside a room belongs to it until it gets its own row.
table='
platform                    | platform                                                | standard
model                       | model platform                                          | standard
views                       | views model platform                                    | standard
controller                  | controller views model platform                         | standard
hooks                       | hooks controller views model platform                   | standard
platform/simulated          | platform/simulated platform simulator/device            | standard
platform/ios                | platform/ios platform                                   | any
simulator/preferences       | simulator/preferences                                   | any
simulator/device            | simulator/device simulator/preferences                  | any
simulator/scenario          | simulator/scenario simulator/device                     | any
simulator/render            | simulator/render simulator/device                       | any
simulator                   | simulator/...                                           | any
simulator/Globals.cpp       | simulator/... model platform                            | any
simulator/LinkedLibrary.cpp | simulator/... hooks controller views model platform     | any
'

# The seam and the logic are the same text for every host.
unconditional='^(platform/[^/]+[.]h|(model|views|controller|hooks)/.*)$'

violations() {
    sources "$root" | grep -vE '^(packaging|tests|fuzz|bench)/' | (cd "$root" && xargs awk -v table="$table" -v unconditional="$unconditional" '
        function trim(text) { gsub(/^ +| +$/, "", text); return text }

        # The name of the row for `path`: the longest one that it lies in or is.
        function row(path) {
            while (!(path in mayInclude) && sub(/\/?[^\/]*$/, "", path) && path != "") { }
            return path
        }

        function allows(room, target,    names, count, i, whole) {
            count = split(mayInclude[room], names, " ")
            for (i = 1; i <= count; i++) {
                whole = names[i]
                if (target == whole || (sub(/\/[.][.][.]$/, "", whole) && index(target "/", whole "/") == 1))
                    return 1
            }
            return 0
        }

        function complain(text) { print FILENAME ":" FNR ": " text }

        BEGIN {
            count = split(table, lines, "\n")
            for (i = 1; i <= count; i++) {
                if (split(lines[i], cells, "|") == 3) {
                    mayInclude[trim(cells[1])] = trim(cells[2])
                    libraries[trim(cells[1])] = trim(cells[3])
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
