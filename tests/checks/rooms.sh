# shellcheck shell=bash
# What every check knows of the tree. To be sourced.

set -euo pipefail
export LC_ALL=C

logic_rooms=(model views controller hooks)

# The rooms of ROOT that hold sources, and are there.
source_rooms() {
    local room
    for room in "${logic_rooms[@]}" platform simulator tests fuzz bench; do
        [[ ! -d $1/$room ]] || echo "$room"
    done
}

# Every C++ file of ROOT, one a line, relative to it, sorted.
sources() {
    # shellcheck disable=SC2046 # the names of rooms hold no blanks
    (cd "$1" && find $(source_rooms .) -type f \( -name '*.h' -o -name '*.cpp' \) | sort)
}

# Every C++ source of the logic, headers left out.
logic_sources() {
    (cd "$1" && find "${logic_rooms[@]}" -type f -name '*.cpp' | sort)
}

# Ends the check: status 1 if anything was found, which has been printed already, a line saying so otherwise.
conclude() {
    local what=$1 found=$2
    if [[ $found -ne 0 ]]; then
        echo "$what: $found found" >&2
        exit 1
    fi
    echo "$what: none"
}
