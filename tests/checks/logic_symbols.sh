#!/usr/bin/env bash
# What the logic asks of the world: the seam's functions, and the standard library's.
#
#   logic_symbols.sh OBJECTS COMPILER SEAM
#
# SEAM is the archive of a backend. Whatever the logic needs must be defined in it, inside the namespace of the seam, or
# be exported by the libraries that every C++ program is linked to.
source "$(dirname "${BASH_SOURCE[0]}")/rooms.sh"
objects=$1 compiler=$2 seam=$3

undefined() { nm --undefined-only "$@" | awk 'NF == 2 { print $2 }' | sort -u; }
defined() { nm --defined-only "$@" 2>/dev/null | awk 'NF == 3 { print $3 }' | sort -u; }

# The C and C++ libraries, as the dynamic linker knows them.
standard_library() {
    local library file
    for library in libstdc++.so.6 libm.so.6 libc.so.6 libgcc_s.so.1; do
        file=$("$compiler" -print-file-name="$library")
        [[ -f $file ]] || { echo "$library not found" >&2; exit 1; }
        nm --dynamic --defined-only "$file" | awk '{ sub(/@.*/, "", $3); print $3 }'
    done | sort -u
}

# The seam's own functions: namespace panotra and no namespace inside it.
seam_functions() {
    paste <(defined "$seam") <(defined "$seam" | c++filt) |
        awk -F '\t' '$2 ~ /^panotra::/ && $2 !~ /^panotra::(sim|preferences|render)::/ { print $1 }' | sort -u
}

mapfile -t all < <(find "$objects" -name '*.o' | sort)
missing=$(comm -23 <(undefined "${all[@]}") <(defined "${all[@]}") |
    comm -23 - <(seam_functions) | comm -23 - <(standard_library) | grep -vx _GLOBAL_OFFSET_TABLE_ || true)

[[ -z $missing ]] || c++filt <<<"$missing" >&2
conclude "symbols that are neither the seam's nor the standard library's" "$(grep -c . <<<"$missing" || true)"
