#!/usr/bin/env bash
# The same sources give the same bytes, as far as they are handed out: built again from another folder into another
# folder, without a cache of compilations, in another time zone, language and file mode.
#
#   reproducible.sh ROOT DEVICE
#
# DEVICE is the folder that scripts/build-device filled from the sources as they are.
source "$(dirname "${BASH_SOURCE[0]}")/../checks/rooms.sh"
root=$1 device=$2

scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
sources=$scratch/a/longer/way/to/the/sources
again=$sources/again

mkdir -p "$again"
touch "$again/net.qorvath.panotra_0.0.0_iphoneos-arm.deb" # left by an older version
(
    cd "$root"
    cp -r CMakeLists.txt cmake controller doctor facts hooks model packaging platform resources scripts views "$sources"
    cp -r --parents tests/seam "$sources"
)
cp -r "$device/libcxx" "$again"
(
    umask 077
    cd "$scratch"
    CCACHE_DISABLE=1 TZ=Pacific/Chatham LC_ALL=C.UTF-8 "$sources/scripts/build-device" "${again#"$scratch/"}" arm64 >/dev/null
)

different=0
packages() { (cd "$1" && ls -- *.deb); }
[[ $(packages "$again") == "$(packages "$device")" ]] || different=1
for file in $(packages "$device") arm64/Panotra.dylib; do
    if ! cmp "$device/$file" "$again/$file"; then
        different=$((different + 1))
    fi
done
conclude "files that differ between two builds" "$different"
