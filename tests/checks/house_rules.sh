#!/usr/bin/env bash
# Rules of the house that a machine can watch.
#
#   house_rules.sh ROOT
#
# - A source begins by saying what it is for, in lines of `///`.
# - A header is guarded by `#pragma once`.
# - A source is at most 400 lines long; the file long_files.txt beside this one names the exceptions and why.
# - No two headers of the logic and of the simulator have one name, and no two of their classes in one namespace: a
#   program that linked both classes would be undefined, and no linker says so.
# - No note of work left undone, and no test that is switched off.
source "$(dirname "${BASH_SOURCE[0]}")/rooms.sh"
root=$1
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
most_lines=400

found=0
complain() {
    echo "$1: $2" >&2
    found=$((found + 1))
}

cd "$root"
allowed_long() { grep -v -e '^#' -e '^$' "$here/long_files.txt" | cut -d: -f1; }

# FILE FAULT of each source that is not as it should be; one process reads them all.
while read -r file fault; do
    complain "$file" "$fault"
done < <(sources . | xargs awk -v most="$most_lines" -v allowed="$(allowed_long)" '
    function judge() {
        if (isHeader && !isGuarded)
            print name " has no #pragma once"
        if (lines > most && !(name in isAllowed))
            print name " " lines " lines: find the noun that hides in it"
    }
    BEGIN {
        split(allowed, names, "\n")
        for (i in names)
            isAllowed[names[i]]
    }
    FNR == 1 {
        if (name != "")
            judge()
        name = FILENAME
        isHeader = name ~ /[.]h$/
        isGuarded = 0
        if (substr($0, 1, 4) != "/// ")
            print name " does not begin with what it is for (///)"
    }
    { lines = FNR }
    $0 == "#pragma once" { isGuarded = 1 }
    END { judge() }')
while read -r file; do
    complain "$file" "is empty"
done < <(sources . | xargs stat --format='%s %n' | sed -n 's|^0 ||p')

while read -r file; do
    if [[ ! -f $file || $(wc -l <"$file") -le $most_lines ]]; then
        complain "$file" "needs no place in long_files.txt"
    fi
done < <(allowed_long)

headers() {
    # shellcheck disable=SC2046 # the names of rooms hold no blanks
    find $(existing_rooms . "${logic_rooms[@]}" simulator) -name '*.h' | sort
}

# FILE NAME of each header, and FILE NAMESPACE::CLASS of each class that a header defines at its left margin.
names_of_headers() {
    headers | awk -F/ '{ print $0, $NF }'
    headers | xargs awk '
        FNR == 1 { space = "" }
        /^namespace [a-z:]+ \{/ && space == "" { space = $2 }
        /^(struct|class|enum class|union) [A-Za-z]/ && !/;$/ {
            name = $1 == "enum" ? $3 : $2
            sub(/:$/, "", name)
            print FILENAME, space "::" name
        }'
}

while read -r file name; do
    complain "$file" "another header has a $name too"
done < <(names_of_headers | awk '$2 in first { print; next } { first[$2] = $1 }')

# Written so that this file does not hold the words itself.
left_undone='\b(TO''DO|FIX''ME|XX''X|HA''CK)\b'
switched_off='GTEST_''SKIP|\bDISABLED''_'
# shellcheck disable=SC2046 # the names of rooms hold no blanks
while read -r line; do
    complain "${line%%:*}" "${line#*:}"
done < <(grep -rnE --include='*.h' --include='*.cpp' --include='*.sh' --include='*.mm' --include='*.txt' --include='*.cmake' \
    "$left_undone|$switched_off" $(source_rooms .) cmake resources
    grep -rnE "$left_undone|$switched_off" scripts packaging bench .ci Makefile || true)

conclude "violations of the rules of the house" "$found"
