# shellcheck shell=bash
# What every check knows of the tree. To be sourced.

set -euo pipefail
export LC_ALL=C

logic_rooms=(facts model views controller hooks)

# Those of the rooms that ROOT has.
existing_rooms() {
    local root=$1 room
    shift
    for room in "$@"; do
        [[ ! -d $root/$room ]] || echo "$room"
    done
}

# The rooms of ROOT that hold sources of ours. What packaging/sdk declares has the layout and the style of the system
# that it stands for.
source_rooms() {
    existing_rooms "$1" "${logic_rooms[@]}" platform doctor simulator packaging/checks packaging/signer tests fuzz bench
}

# Every C++ and Objective-C++ file of ROOT, one a line, relative to it, sorted.
sources() {
    # shellcheck disable=SC2046 # the names of rooms hold no blanks
    (cd "$1" && find $(source_rooms .) -type f \( -name '*.h' -o -name '*.cpp' -o -name '*.mm' \) | sort)
}

# Every C++ source of the logic, headers left out.
logic_sources() {
    # shellcheck disable=SC2046 # the names of rooms hold no blanks
    (cd "$1" && find $(existing_rooms . "${logic_rooms[@]}") -type f -name '*.cpp' | sort)
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
