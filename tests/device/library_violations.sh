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

constructor='extern "C" void* malloc(unsigned long); [[gnu::constructor]] static void start() { malloc(1); }'
# Data of a name and a value that nobody asks for and that stay all the same.
kept() { echo "$constructor; [[gnu::used]] static $1 = $2;"; }

# Imports and libraries.

library -Wl,-undefined,dynamic_lookup <<<"extern \"C\" void puts(); $(kept 'void (*pointer)()' puts)"
expect_refused "an import that no stub allows" 'imports flat-namespace _puts, which no stub allows'
library <<<"$constructor"
expect_refused "a stub that allows more than is used, and a library that is not linked" \
    'does not import libSystem _free' \
    'is not linked to /usr/lib/libobjc.A.dylib'
library -Wl,-weak-lobjc <<<"$constructor"
expect_refused "a library that may be missing" 'is linked in another way to /usr/lib/libobjc.A.dylib: LC_LOAD_WEAK_DYLIB'

mkdir "$scratch/stubs"
sed -e "s|/usr/lib/libSystem.B.dylib|/usr/lib/libOther.dylib|" -e 's|compatibility-version: 0|compatibility-version: 3|' \
    -e 's|_malloc|_other|' "$stubs/mixer/libSystem.tbd" >"$scratch/stubs/libOther.tbd"
library -L "$scratch/stubs" -lOther <<<"extern \"C\" void other(); $(kept 'void (*pointer)()' other)"
expect_refused "another library, of a version that an old system may not have" \
    'is linked to /usr/lib/libOther.dylib' \
    'asks for version 3.0.0 of /usr/lib/libOther.dylib'

# Sections.

library <<<"$constructor [[gnu::constructor]] static void again() { malloc(2); }"
expect_refused "two constructors" 'has 16 bytes of constructors'
library <<<'int nothing;'
expect_refused "no constructor" 'has 0 bytes of constructors'
for section in __mod_term_func __objc_imageinfo __objc_nlclslist __interpose __init_offsets; do
    library <<<"$(kept "long number [[gnu::section(\"__DATA,$section\")]]" 0)"
    expect_refused "a section that does something at load" "has a section $section"
done

library -lobjc <<<"$constructor extern \"C\" void objc_msgSend(); [[gnu::used]] static void send() { objc_msgSend(); }"
expect_refused "a message whose raise nothing ends" 'does not guard the call of _objc_msgSend at 0x'
library <<<"$constructor"
expect_refused "no message at all" 'sends no messages'

# Names.

usual_names=('-Wl,-x')
library <<<"$constructor extern \"C\" void shown() { }"
expect_refused "an exported name" 'exports _shown'
library <<<"extern \"C\" [[gnu::weak]] void shared() { } $(kept 'void (*pointer)()' shared)"
expect_refused "a name shared with other libraries" 'shares _shared with other libraries'
usual_names=('-Wl,-no_exported_symbols')
library <<<"$constructor"
expect_refused "a name of its own" 'names __ZL5startv'
usual_names+=('-Wl,-x')
library <<<"$(kept 'const char* path' '"/home/somebody/Panotra.cpp"')"
expect_refused "a path of the machine that built it" 'holds the path /home/somebody/Panotra.cpp'
library <<<"$(kept 'const char* path' "\"$root/views\"")"
expect_refused "a path of the repository, wherever that is" "holds the path $root/views"

# What it is.

library --target=arm64-apple-ios10.0 <<<"$constructor"
expect_refused "another least version" 'asks for system 10.0, not 9.0'
library --target=x86_64-apple-ios11.0-simulator <<<"$constructor"
expect_refused "another processor" 'is no library for arm64 but x86_64 DYLIB'
library -install_name /usr/lib/Panotra.dylib <<<"$constructor"
expect_refused "another place" 'is installed as /usr/lib/Panotra.dylib'
library -Wl,-rpath,/var/jb/usr/lib <<<"$constructor"
expect_refused "a run path" "searches ./var/jb/usr/lib., not .."
library <<<"$(kept 'char room[200000]' '{ 1 }')"
expect_refused "a library that is too long" 'bytes long, more than 131072'

# Signature. Everything else about it is signature_violations.sh's business.

library -Wl,-no_adhoc_codesign <<<"$constructor"
expect_refused "no signature" "is not signed\$"
library <<<"$constructor"
expect_refused "the linker's signature" "has a signature of 1 parts, not 4"

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
