#!/usr/bin/env bash
# The check of the signature must find every kind of damage: each is done to a copy of the phone's library, byte by byte.
# And the signer refuses what it cannot sign, which stays as it was.
#
#   signature_violations.sh ROOT DEVICE
#
# DEVICE is the folder that scripts/build-device filled.
source "$(dirname "${BASH_SOURCE[0]}")/../checks/rooms.sh"
device=$2
library=$device/arm64/Panotra.dylib

scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
planted=$scratch/Panotra.dylib
failures=0

# The number at a place of the library, the most or the least significant byte first.
big() { od -An -v -tu4 --endian=big -j "$1" -N 4 "$library" | tr -d ' '; }
little() { od -An -v -tu4 --endian=little -j "$1" -N 4 "$library" | tr -d ' '; }

# Where things are.
command=32
for ((left = $(little 16); left > 0; left--)); do
    kind=$(little "$command")
    if [[ $kind -eq $((0x1d)) ]]; then
        signature_command=$command
    elif [[ $kind -eq $((0x19)) && $(dd if="$library" bs=1 skip=$((command + 8)) count=10 status=none | tr -d "\0") == __LINKEDIT ]]; then
        link_edit=$command
    fi
    command=$((command + $(little $((command + 4)))))
done
signature=$(little $((signature_command + 8)))
part() { echo $((signature + $(big $((signature + 16 + 8 * $1))))); }
requirements=$(part 1)
envelope=$(part 3)
pages=$(big $(($(part 0) + 28)))

# Expects the check to refuse the planted library, and to say why.
expect_refused() {
    local what=$1 expected=$2
    if "$device/native/check-signature" "$planted" >"$scratch/said" 2>&1 || ! grep -qE -- "$expected" "$scratch/said"; then
        echo "not found: $what" >&2
        cat "$scratch/said" >&2
        failures=$((failures + 1))
    fi
}
# Writes BYTES over those at PLACE.
poke() { printf "$2" | dd of="$planted" bs=1 seek="$1" conv=notrunc status=none; }
# plant WHAT PLACE BYTES COMPLAINT...: in a fresh copy.
plant() {
    local what=$1 complaint
    cp "$library" "$planted"
    poke "$2" "$3"
    if cmp --silent "$library" "$planted"; then
        echo "nothing planted: $what" >&2
        failures=$((failures + 1))
    fi
    for complaint in "${@:4}"; do
        expect_refused "$what" "$complaint"
    done
}

# The code.
plant "a changed byte" 9000 'X' 'of SHA-1 in page 2$' 'of SHA-256 in page 2$'
plant "a changed last byte" $((signature - 1)) 'X' "of SHA-1 in page $((pages - 1))$" "of SHA-256 in page $((pages - 1))$"
plant "a changed header" 24 'X' 'of SHA-1 in page 0$' 'of SHA-256 in page 0$'

# The whole.
plant "another magic number" "$signature" '\0' 'a signature of an unknown kind'
plant "another length" $((signature + 7)) '\1' 'length is not that of its parts'
plant "a missing part" $((signature + 11)) '\3' 'of 3 parts, not 4'
for index in 0 1 2 3; do
    plant "another slot for part $index" $((signature + 15 + 8 * index)) '\7' "whose part $((index + 1)) is for slot"
done
plant "parts in one place" $((signature + 24)) "$(printf '\\x%02x' 0 0 0 44)" 'a gap or an overlap'
plant "a part outside" $((signature + 24)) '\x00\xff\xff\xff' 'ends in the middle of something'
cp "$library" "$planted"
poke $((signature_command + 12)) "$(printf '\\x%02x' $((($(little $((signature_command + 12))) + 16) & 255)) $((($(little $((signature_command + 12))) + 16) >> 8)))"
printf '%015dX' 0 | tr 0 '\0' >>"$planted"
expect_refused "something behind the signature" 'has something behind its signature'
plant "requirements that require something" $((requirements + 11)) '\1' 'whose part for the requirements is not the empty one'
plant "requirements of another kind" "$requirements" '\0' 'whose part for the requirements is not the empty one'
plant "an envelope of another kind" $((envelope + 3)) '\2' 'whose part for the envelope is not the empty one'

# Each of the two directories.
for which in "0 SHA-1 20" "2 SHA-256 32"; do
    read -r index name size <<<"$which"
    directory=$(part "$index")
    hashes=$((directory + $(big $((directory + 16)))))
    plant "$name: another magic number" $((directory + 3)) '\0' "unknown kind where $name belongs"
    plant "$name: another version" $((directory + 10)) '\3' "$name of another version"
    plant "$name: not ad hoc" $((directory + 15)) '\0' "not signed ad hoc, or not that alone, with $name"
    plant "$name: by the linker" $((directory + 13)) '\2' "not signed ad hoc, or not that alone, with $name"
    plant "$name: another length of hashes" $((directory + 36)) '\60' "hashes of another kind where $name belongs"
    plant "$name: another kind of hashes" $((directory + 37)) '\3' "hashes of another kind where $name belongs"
    plant "$name: a platform" $((directory + 38)) '\2' "with $name for a platform of its own"
    plant "$name: larger pages" $((directory + 39)) '\16' "with $name in pages of another size"
    plant "$name: less that is signed" $((directory + 35)) '\1' "with $name up to another place"
    plant "$name: fewer pages" $((directory + 31)) '\1' "of $name for another number of pages"
    plant "$name: another place of the code" $((directory + 78)) '\1' "of $name that says another place of the code"
    plant "$name: another name" $((directory + 88)) 'X' "with $name under another name than Panotra.dylib"
    plant "$name: a longer name" $((directory + 88 + 13)) 'X' "with $name under another name than Panotra.dylib"
    plant "$name: more special slots" $((directory + 27)) '\3' "another number of special slots of $name"
    plant "$name: a wrong hash of the requirements" $((hashes - 2 * size)) 'XX' "requirements that do not hash as recorded with $name"
    plant "$name: hashes in another place" $((directory + 19)) '\x48' "a code directory of $name that is too long"
    plant "$name: a property list" $((hashes - 1)) 'X' "a hash of $name for a property list"
    for ((page = 0; page < pages; page++)); do
        plant "$name: a wrong hash of page $page" $((hashes + page * size + size - 2)) 'XX' "of $name in page $page$"
    done
done

# Its place.
plant "memory in pages of 4 KB" $((link_edit + 33)) '\x10' 'no pages of 16 KB or too few'
plant "too little memory" $((link_edit + 32)) '\0\0\0' 'no pages of 16 KB or too few'
plant "a segment that ends early" $((link_edit + 48)) '\1\1' '__LINKEDIT that does not end with the signature'
plant "a signature at an odd place" $((signature_command + 8)) '\1' 'a signature at an odd place'
cp "$library" "$planted"
echo more >>"$planted"
expect_refused "more after the signature" 'elsewhere than at its end'
truncate --size=-100 "$planted"
expect_refused "a file that ends early" 'ends in the middle of something'
plant "no library" 0 'X' 'is no 64-bit Mach-O file'

# The signer: what it has signed it leaves as it is; what it cannot sign, too, and says why.
cp "$library" "$planted"
"$device/native/sign-library" "$planted"
cmp "$library" "$planted" || failures=$((failures + 1))
expect_not_signed() {
    local what=$1 expected=$2 status=0
    cp "$planted" "$scratch/before"
    "$device/native/sign-library" "$planted" >"$scratch/said" 2>&1 || status=$?
    if [[ $status -ne 1 ]] || ! grep -q -- "$expected" "$scratch/said" || ! cmp --silent "$planted" "$scratch/before"; then
        echo "signed, or otherwise refused: $what (status $status)" >&2
        cat "$scratch/said" >&2
        failures=$((failures + 1))
    fi
}
poke 0 'X'
expect_not_signed "no library" 'is no 64-bit Mach-O file'
cp "$library" "$planted"
poke "$signature_command" '\1'
expect_not_signed "an unsigned library" 'has no signature that could be replaced'
cp "$library" "$planted"
poke $((link_edit + 8)) 'X'
expect_not_signed "a library without the segment" 'lacks the segment __TEXT or __LINKEDIT'
cp "$library" "$planted"
echo more >>"$planted"
expect_not_signed "more after the signature" 'does not end with its signature'
truncate --size=300 "$planted"
expect_not_signed "a file that ends early" 'ends in the middle of something'
if [[ $("$device/native/sign-library" 2>&1; echo $?) != *$'\n2' || $("$device/native/sign-library" "$scratch/none" 2>&1; echo $?) != *$'cannot be read\n2' ]]; then
    echo "a wrong command line and a missing file are no status 2" >&2
    failures=$((failures + 1))
fi

conclude "damages that the check of the signature overlooks" "$failures"
