#!/usr/bin/env bash
# The check of the library must find every kind of violation: each is planted in a small library, or in the real one.
#
#   library_violations.sh ROOT DEVICE
#
# DEVICE is the folder that scripts/build-device filled.
source "$(dirname "${BASH_SOURCE[0]}")/../checks/rooms.sh"
root=$1 device=$2
stubs=$root/packaging/sdk/stubs

scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
planted=$scratch/Panotra.dylib
variant=rootful
failures=0

# expect_refused WHAT COMPLAINT...: the check must refuse the planted library, and say all that.
expect_refused() {
    local what=$1 status=0 complaint
    "$root/packaging/checks/check-library" "$variant" arm64 "$planted" "$device/native/check-signature" \
        >"$scratch/said" 2>&1 || status=$?
    for complaint in "${@:2}"; do
        if [[ $status -ne 1 ]] || ! grep -qE -- "$complaint" "$scratch/said"; then
            echo "not found: $what (status $status)" >&2
            cat "$scratch/said" >&2
            failures=$((failures + 1))
        fi
    done
}

# Makes a library of standard input with these options. What they leave unsaid is as in the product.
usual_place=(-install_name /Library/MobileSubstrate/DynamicLibraries/Panotra.dylib)
usual_names=('-Wl,-no_exported_symbols' '-Wl,-x')
library() {
    clang++-19 --target=arm64-apple-ios9.0 -std=c++20 -x c++ - -dynamiclib -nostdlib -fuse-ld=lld \
        "--ld-path=$(type -P ld64.lld-19)" -L "$stubs/mixer" -lSystem \
        "${usual_place[@]}" "${usual_names[@]}" -Wl,-adhoc_codesign "$@" -o "$planted"
}

# Plants that say nothing of one another share a library: the check goes on after each complaint.
constructor='extern "C" void* malloc(unsigned long); [[gnu::constructor]] static void start() { malloc(1); }'
# Data of a name and a value that nobody asks for and that stay all the same.
kept() { echo "[[gnu::used]] static $1 = $2;"; }

library <<<"$constructor"
expect_refused "a stub that allows more than is used, a library that is not linked, no message, the linker's signature" \
    'does not import libSystem _free' \
    'is not linked to /usr/lib/libobjc.A.dylib' \
    'sends no messages' \
    'has a signature of 1 parts, not 4'

# Everything that the dynamic loader acts upon. A section of each kind does something at load.
sections=(__mod_term_func __objc_imageinfo __objc_nlclslist __interpose __init_offsets)
{
    echo "$constructor [[gnu::constructor]] static void again() { malloc(2); } extern \"C\" void puts();"
    kept 'void (*pointer)()' puts
    for section in "${sections[@]}"; do
        kept "long of$section [[gnu::section(\"__DATA,$section\")]]" 0
    done
    kept 'char room[200000]' '{ 1 }'
    kept 'const char* path' '"/home/somebody/Panotra.cpp"'
} | library -Wl,-undefined,dynamic_lookup -Wl,-weak-lobjc -install_name /usr/lib/Panotra.dylib -Wl,-rpath,/var/jb/usr/lib
expect_refused "a library of which nearly everything is wrong" \
    'imports flat-namespace _puts, which no stub allows' \
    'is linked in another way to /usr/lib/libobjc.A.dylib: LC_LOAD_WEAK_DYLIB' \
    'has 16 bytes of constructors' \
    "${sections[@]/#/has a section }" \
    'is installed as /usr/lib/Panotra.dylib' \
    "searches ./var/jb/usr/lib., not .." \
    'bytes long, more than 131072' \
    'holds the path /home/somebody/Panotra.cpp'

mkdir "$scratch/stubs"
sed -e "s|/usr/lib/libSystem.B.dylib|/usr/lib/libOther.dylib|" -e 's|compatibility-version: 0|compatibility-version: 3|' \
    -e 's|_malloc|_other|' "$stubs/mixer/libSystem.tbd" >"$scratch/stubs/libOther.tbd"
usual_names=('-Wl,-x')
{
    echo 'extern "C" void other(); extern "C" void shown() { } extern "C" [[gnu::weak]] void shared() { }'
    kept 'void (*pointer)()' other
    kept 'void (*another)()' shared
    kept 'const char* path' "\"$root/views\""
} | library -L "$scratch/stubs" -lOther -Wl,-no_adhoc_codesign
expect_refused "another library, of a version that an old system may not have; names; the repository's path; no signature" \
    'is linked to /usr/lib/libOther.dylib' \
    'asks for version 3.0.0 of /usr/lib/libOther.dylib' \
    'has 0 bytes of constructors' \
    'exports _shown' \
    'shares _shared with other libraries' \
    "holds the path $root/views" \
    "is not signed\$"

usual_names=('-Wl,-no_exported_symbols')
library -lobjc --target=arm64-apple-ios10.0 <<<"$constructor
    extern \"C\" void objc_msgSend(); [[gnu::used]] static void send() { objc_msgSend(); }"
expect_refused "a message whose raise nothing ends, a name of its own, another least version" \
    'does not guard the call of _objc_msgSend at 0x' \
    'names __ZL5startv' \
    'asks for system 10.0, not 9.0'
usual_names+=('-Wl,-x')
library --target=x86_64-apple-ios11.0-simulator <<<"$constructor"
expect_refused "another processor" 'is no library for arm64 but x86_64 DYLIB'

# The other variant: what is right for one is wrong for the other.

cp "$device/arm64/rootless/Panotra.dylib" "$planted"
expect_refused "the other variant" \
    "is linked to @rpath/CydiaSubstrate.framework/CydiaSubstrate" \
    "searches ./var/jb/Library/Frameworks .*, not .."
variant=rootless
cp "$device/arm64/Panotra.dylib" "$planted"
expect_refused "the other variant" \
    "is linked to /Library/Frameworks/CydiaSubstrate.framework/CydiaSubstrate" \
    "searches .., not ./var/jb/Library/Frameworks " \
    "is installed as /Library/MobileSubstrate/DynamicLibraries/Panotra.dylib" \
    "does not import libSystem _dladdr"

conclude "plants that the check of the library overlooks" "$failures"
