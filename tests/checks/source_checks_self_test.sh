#!/usr/bin/env bash
# The checks of the sources' text must find every kind of violation, and nothing in a tree that has none.
#
#   source_checks_self_test.sh ROOT
source "$(dirname "${BASH_SOURCE[0]}")/rooms.sh"
root=$1
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)

scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
tree=$scratch/tree
failures=0

# A small tree in order: one header with one source, which includes another header first.
fresh_tree() {
    rm -rf "$tree"
    mkdir -p "$tree"/{model,simulator,cmake,scripts,resources}
    cp "$root/.clang-format" "$tree"
    printf '/// A number.\n#pragma once\n\ninline constexpr int number = 1;\n' >"$tree/model/Number.h"
    printf '/// A shape.\n#pragma once\n\nnamespace panotra {\n\nstruct Shape {\n    int corners;\n};\n\n} // namespace panotra\n' \
        >"$tree/model/Shape.h"
    printf '/// Its name.\n#pragma once\n\nextern const char* const name;\n' >"$tree/model/Name.h"
    printf '/// Its name.\n#include "model/Name.h"\n\nconst char* const name = "one";\n' >"$tree/model/Name.cpp"
}

fail() {
    echo "$1" >&2
    cat "$scratch/said" >&2
    failures=$((failures + 1))
}

# Writes the text, a printf format, as a file of the tree, and expects the check to name that file and to say something.
expect_found() {
    local file=$1 text=$2 expected=$3
    shift 3
    fresh_tree
    if ! "$@" >"$scratch/said" 2>&1; then
        fail "$(basename "$1"): the tree without a plant must pass"
    fi
    # shellcheck disable=SC2059 # the text is a format, for its line ends
    printf "$text" >"$tree/$file"
    if "$@" >"$scratch/said" 2>&1 || ! grep -qF "$expected" "$scratch/said" || ! grep -qF "$file" "$scratch/said"; then
        fail "$(basename "$1"): not found: '$text' in $file"
    fi
}

house_rules=("$here/house_rules.sh" "$tree")
expect_found model/Planted.cpp '#include "model/Name.h"\n' 'what it is for' "${house_rules[@]}"
expect_found model/Planted.h '/// Nothing.\nint number();\n' 'no #pragma once' "${house_rules[@]}"
expect_found model/Planted.cpp "/// Long.\n$(printf '\\n%.0s' {1..400})" '401 lines' "${house_rules[@]}"
expect_found simulator/Number.h '/// One more number.\n#pragma once\n' 'another header has a Number.h too' "${house_rules[@]}"
planted_class='/// A class.\n#pragma once\n\nnamespace panotra {\n\nstruct Shape : Number {\n    int sides;\n};\n\n} // namespace panotra\n'
expect_found simulator/Planted.h "$planted_class" 'another header has a panotra::Shape too' "${house_rules[@]}"
expect_found model/Planted.cpp '/// Later.\n// TO''DO: all of it\n' 'all of it' "${house_rules[@]}"
expect_found cmake/Planted.cmake '# FIX''ME\n' 'FIX''ME' "${house_rules[@]}"
expect_found model/Planted.cpp '/// Off.\nTEST(Planted, DISABLED''_Test) { }\n' 'DISABLED''_Test' "${house_rules[@]}"

expect_found model/Planted.cpp '/// Untidy.\nint  number = 1;\n' 'clang-formatted' "$here/formatting.sh" "$tree"

conclude "plants that the checks of the sources overlook" "$failures"
