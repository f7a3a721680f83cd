#!/usr/bin/env bash
# The layering check must find every kind of violation, and nothing in a tree that has none.
#
#   layering_self_test.sh ROOT
source "$(dirname "${BASH_SOURCE[0]}")/rooms.sh"
root=$1
check=$(dirname "${BASH_SOURCE[0]}")/layering.sh

# Where it is planted | what | what the check must say about it.
plants='
facts/Planted.h                        | #include "platform/CoreGraphics.h"    | facts may not include
facts/Planted.h                        | #include <unistd.h>                   | standard headers only
facts/Planted.h                        | #ifdef __APPLE__                      | conditional compilation
platform/Planted.h                     | #include "model/ProcessValues.h"      | platform may not include
platform/Planted.h                     | #include "platform/simulated/Host.h"  | platform may not include
platform/Planted.h                     | #include <objc/runtime.h>             | standard headers only
platform/Planted.h                     | #ifdef __APPLE__                      | conditional compilation
platform/Planted.h                     | # if defined(__linux__)               | conditional compilation
model/Planted.cpp                      | #include "views/PNOWindow.h"          | model may not include
views/Planted.cpp                      | #include "controller/PNOController.h" | views may not include
controller/Planted.cpp                 | #include "hooks/Panotra.h"            | controller may not include
hooks/Planted.cpp                      | #include "simulator/device/View.h"    | hooks may not include
hooks/Planted.cpp                      | #include "platform/simulated/Host.h"  | hooks may not include
hooks/Planted.cpp                      | #include "platform/ios/Send.h"        | hooks may not include
hooks/Planted.cpp                      | #include "Panotra.h"                  | not named from the root
hooks/Planted.cpp                      | #include <unistd.h>                   | standard headers only
hooks/Planted.cpp                      | #if __cplusplus                       | conditional compilation
hooks/Planted.cpp                      | #elif NDEBUG                          | conditional compilation
hooks/deeper/Planted.cpp               | #  include "simulator/Play.h"         | hooks may not include
platform/simulated/Planted.cpp         | #include "model/ProcessValues.h"      | platform/simulated may not include
platform/simulated/Planted.cpp         | #include "simulator/scenario/Forms.h" | platform/simulated may not include
simulator/device/Planted.cpp           | #include "platform/UIView.h"          | simulator/device may not include
simulator/device/Planted.cpp           | #include "model/ProcessValues.h"      | simulator/device may not include
simulator/text/Planted.cpp             | #include "facts/PublicNames.h"        | simulator/text may not include
simulator/preferences/Planted.cpp      | #include "platform/NSString.h"        | simulator/preferences may not include
simulator/preferences/Planted.cpp      | #include "simulator/device/Device.h"  | simulator/preferences may not include
simulator/scenario/Planted.cpp         | #include "hooks/Panotra.h"            | simulator/scenario may not include
simulator/scenario/Planted.cpp         | #include "simulator/Play.h"           | simulator/scenario may not include
simulator/picture/Planted.cpp          | #include "simulator/window/Layout.h"  | simulator/picture may not include
simulator/gallery/Planted.cpp          | #include "simulator/commands/Prefs.h" | simulator/gallery may not include
simulator/film/Planted.cpp             | #include "simulator/gallery/Gallery.h" | simulator/film may not include
simulator/sound/Planted.cpp            | #include "simulator/window/Layout.h"  | simulator/sound may not include
simulator/desktop/Planted.cpp          | #include "hooks/Panotra.h"            | simulator/desktop may not include
simulator/window/Planted.cpp           | #include "model/ProcessValues.h"      | simulator/window may not include
simulator/commands/Planted.cpp         | #include "simulator/device/Device.h"  | simulator/commands may not include
simulator/Planted.cpp                  | #include "simulator/render/Scene.h"   | simulator may not include
simulator/main.cpp                     | #include "hooks/Panotra.h"            | simulator/main.cpp may not include
simulator/Globals.cpp                  | #include "hooks/Panotra.h"            | simulator/Globals.cpp may not include
simulator/LinkedLibrary.cpp            | #include "platform/simulated/Host.h"  | simulator/LinkedLibrary.cpp may not include
'

tree=$(mktemp -d)
trap 'rm -rf "$tree"' EXIT
failures=0

# Runs the check over the planted tree; what it says goes to its only argument.
run_check() { "$check" "$tree" >"$1" 2>&1; }

(cd "$root" && sources . | xargs cp --parents -t "$tree")
if ! run_check "$tree/said"; then
    echo "the tree without a plant must pass:" >&2
    cat "$tree/said" >&2
    failures=$((failures + 1))
fi

while IFS='|' read -r file line expected; do
    [[ -n $line ]] || continue
    read -r file <<<"$file"
    read -r line <<<"$line"
    read -r expected <<<"$expected"
    mkdir -p "$tree/$(dirname "$file")"
    echo "$line" >>"$tree/$file"
    if run_check "$tree/said" || ! grep -qF "$expected" "$tree/said" || ! grep -qF "$file:" "$tree/said"; then
        echo "not found: '$line' in $file" >&2
        failures=$((failures + 1))
    fi
    rm "$tree/$file"
    [[ ! -e $root/$file ]] || cp "$root/$file" "$tree/$file"
done <<<"$plants"

conclude "plants that the layering check overlooks" "$failures"
