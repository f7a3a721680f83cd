#!/usr/bin/env bash
# Fails when an event takes more instructions in the library than the table of costs says. A twentieth and thirty are
# allowed on top: where things lie in memory is not the same in every run.
#
#   own_instructions.sh COUNTER PROGRAM TABLE
set -euo pipefail
"$1" "$2" | awk -F'\t' -v table="$3" '
    BEGIN {
        while ((getline line <table) > 0) {
            if (split(line, cells, / *\| */) > 8) {
                gsub(",", "", cells[3])
                most[cells[2]] = cells[3]
            }
        }
    }
    { counted[$1] = 1 }
    !($1 in most) { print "no row for " $1; failed = 1; next }
    $2 > most[$1] * 1.05 + 30 { print $1 ": " $2 " instructions, " most[$1] " in the table"; failed = 1 }
    END {
        for (event in most) {
            if (most[event] ~ /^[0-9]+$/ && !(event in counted)) {
                print "not counted: " event
                failed = 1
            }
        }
        exit failed
    }'
