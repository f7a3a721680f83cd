#!/usr/bin/env bash
# Makes a table by file of what a tracefile says, and looks for a reason for every line that no test reaches.
#
#   report.sh ROOT TRACEFILE REASONS
#
# REASONS names each such line at the margin, FILE: TEXT OF THE LINE, and below it, indented, why; several in a row share a
# reason. A line that leaves something has the one above it before it: FILE: if (...) / return; Lines of '#' and empty ones
# say nothing. Status 1: a line lacks a reason, or a reason lacks its line.
set -euo pipefail
export LC_ALL=C
root=$1 trace=$2 reasons=$3

awk -v root="$root/" '
    function short(file) { sub("^" root, "", file); return file }
    function trimmed(line) { gsub(/^[ \t]+|[ \t]+$/, "", line); return line }
    function complain(text) { print text; ++wrong }

    # What a line is called whatever its number; nothing where it only ends or begins what did not run.
    function nameOf(file, number,    line) {
        line = trimmed(text[file, number])
        if (line ~ /^[{}();]*$/ || line ~ /^#/) return ""
        if (line ~ /^(return|break|continue)/) line = trimmed(text[file, number - 1]) " / " line
        return file ": " line
    }
    function readSource(file,    line, number) {
        while ((getline line < (root file)) > 0) text[file, ++number] = line
    }

    FILENAME == ARGV[1] {
        if ($0 ~ /^#/ || $0 == "") next
        if ($0 ~ /^[^ ]/) { reasonFor[$0] = ""; waiting[$0]; next }
        for (name in waiting) reasonFor[name] = trimmed($0)
        delete waiting
        next
    }

    /^SF:/ { file = short(substr($0, 4)); files[++count] = file; readSource(file) }
    /^DA:/ {
        split(substr($0, 4), cells, ",")
        all[file]++
        if (cells[2] > 0) { hit[file]++; next }
        name = nameOf(file, cells[1])
        if (name == "") next
        found[name]
        if (reasonFor[name] == "")
            complaints[++missing] = file ":" cells[1] ": no test reaches it, and no reason is given: " substr(name, length(file) + 3)
    }
    /^BRDA:/ {
        split(substr($0, 6), cells, ",")
        branches[file]++
        if (cells[4] != "-" && cells[4] > 0) taken[file]++
    }

    function percent(part, whole) { return whole == 0 ? "      -" : sprintf("%6.1f%%", 100 * part / whole) }
    function row(name, l, lh, b, bh) {
        printf "%-46s %5d %5d %s %6d %5d %s\n", name, l, lh, percent(lh, l), b, bh, percent(bh, b)
    }

    END {
        printf "%-46s %5s %5s %7s %6s %5s %7s\n", "file", "lines", "run", "", "ways", "taken", ""
        for (i = 1; i <= count; ++i) {
            file = files[i]
            row(file, all[file], hit[file], branches[file], taken[file])
            l += all[file]; lh += hit[file]; b += branches[file]; bh += taken[file]
        }
        row("all", l, lh, b, bh)
        for (i = 1; i <= missing; ++i) complain(complaints[i])
        for (name in reasonFor) {
            if (name in waiting) complain("no reason: " name)
            else if (reasonFor[name] != "" && !(name in found)) complain("a reason without need: " name)
        }
        exit wrong > 0
    }
' "$reasons" "$trace"
