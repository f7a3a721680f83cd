#!/usr/bin/env bash
# The check of the packages must find every kind of violation: each is planted in a copy of a real one.
#
#   package_violations.sh ROOT DEVICE
#
# DEVICE is the folder that scripts/build-device filled.
source "$(dirname "${BASH_SOURCE[0]}")/../checks/rooms.sh"
root=$1 device=$2

scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
failures=0

# Whose plants follow: the package, the folder below which its files lie, and the check's arguments.
choose() {
    local product=$1 kind=$2 architecture=$3 library=$5 name=panotra
    [[ $product == panotra ]] || name+=.$product
    top=$4
    package=$(realpath "$device/net.qorvath.$name"_*"_$architecture.deb")
    planted=$scratch/$(basename "$package")
    check=("$root/packaging/checks/check-package" "$product" "$kind" "$(dpkg-deb --field "$package" Version)" "$library")
}

# expect_refused FILE COMPLAINT...
expect_refused() {
    local complaint
    if "${check[@]}" "$1" >"$scratch/said" 2>&1; then
        echo "nothing found" >>"$scratch/said"
    fi
    for complaint in "${@:2}"; do
        if grep -q '^nothing found' "$scratch/said" || ! grep -qE -- "$complaint" "$scratch/said"; then
            echo "not said: $complaint" >&2
            cat "$scratch/said" >&2
            failures=$((failures + 1))
        fi
    done
}

# Each line of standard input: what is done in the unpacked package | what the check must say about it. Paths: D the
# folder of the library, B of the pictures, P of the settings page. The lines up to an empty one are done to one package:
# they say nothing of one another, and the check goes on after each complaint.
plant() {
    local action expected actions=() complaints=()
    while IFS='|' read -r action expected || [[ ${#actions[@]} -gt 0 ]]; do
        if [[ -n $action ]]; then
            read -r expected <<<"$expected"
            actions+=("$action")
            complaints+=("$expected")
            continue
        fi
        rm -rf "$scratch/tree"
        dpkg-deb --raw-extract "$package" "$scratch/tree"
        (
            cd "$scratch/tree"
            D=${top}Library/MobileSubstrate/DynamicLibraries B=${top}Library/PreferenceBundles/Panotra.bundle \
                P=${top}Library/PreferenceLoader/Preferences bash -ec "$(printf '%s\n' "${actions[@]}")"
        )
        # Gzip at its fastest: how well a plant is packed is nobody's business.
        dpkg-deb --root-owner-group -Zgzip -z1 --build "$scratch/tree" "$planted" >/dev/null
        expect_refused "$planted" "${complaints[@]}"
        actions=() complaints=()
    done
}

choose panotra rootful iphoneos-arm '' "$device/arm64/Panotra.dylib"
"${check[@]}" "$package" >/dev/null
plant <<'END_OF_PLANTS'
sed -i "s/^Architecture: .*/Architecture: all/" DEBIAN/control    | Architecture is .all., not .iphoneos-arm.
sed -i "s/, firmware (>= 9.0)//" DEBIAN/control                   | Depends is .mobilesubstrate, preferenceloader, firmware \(<<
sed -i "s/^Version: .*/Version: 9.9/" DEBIAN/control              | Version is .9.9.
sed -i "/^Installed-Size/d" DEBIAN/control                        | has no Installed-Size
printf "#!/bin/sh\n" >DEBIAN/postinst; chmod 755 DEBIAN/postinst  | brings more than a control file
touch --date=@5 "$B/siri.png"                                     | holds files of different times

sed -i "s/, firmware (<< [0-9.]*)//" DEBIAN/control               | Depends is .mobilesubstrate, preferenceloader, firmware \(>= 9.0\).,
echo nothing >"$D/README"                                         | holds: .*DynamicLibraries/README
chmod 777 "$D"                                                    | holds: drwxrwxrwx .*DynamicLibraries
chmod 644 "$D/Panotra.dylib"                                      | lacks or has otherwise: -rwxr-xr-x .*Panotra.dylib
echo more >>"$D/Panotra.dylib"                                    | holds another library than .*/arm64/Panotra.dylib
chmod 755 "$P/Panotra.plist"                                      | holds: -rwxr-xr-x .*Preferences/Panotra.plist
sed -i "s/Panotra.png/Other.png/" "$P/Panotra.plist"              | has no picture for its row in the settings

sed -i "s/<dict>/<dct>/" "$P/Panotra.plist"                       | Preferences/Panotra.plist is no property list
sed -i "s/com.apple.springboard/com.apple.UIKit/" "$D/Panotra.plist" | is loaded into: com.apple.UIKit
rm "$B/alarm@3x.png"                                              | lacks or has otherwise: .*alarm@3x.png
echo nothing >"$B/ringer.png"                                     | ringer.png is no picture

rm "$P/Panotra.png"                                               | has no picture for its row in the settings
cp "$B/alarm@2x.png" "$B/alarm@3x.png"                            | alarm@3x.png is not thrice as wide
cp "$B/alarm.png" "$B/alarm@2x.png"                               | alarm@2x.png is not twice as wide
END_OF_PLANTS

dpkg-deb --root-owner-group -Zxz --build "$scratch/tree" "$planted" >/dev/null
expect_refused "$planted" 'is not packed with gzip'

# With another owner, which needs no rights in an archive that is packed by hand.
mkdir "$scratch/archive"
(
    cd "$scratch/archive"
    ar x "$package"
    mkdir data
    tar --extract --gzip --file data.tar.gz --directory data
    tar --create --gzip --owner daemon:1 --group daemon:1 --file data.tar.gz --directory data .
    rm "$planted"
    ar qc "$planted" debian-binary control.tar.gz data.tar.gz
)
expect_refused "$planted" 'holds: .* daemon/daemon .*siri.png'

cp "$package" "$scratch/panotra.deb"
expect_refused "$scratch/panotra.deb" 'has the wrong name'

choose panotra rootless iphoneos-arm64 var/jb/ "$device/arm64/rootless/Panotra.dylib"
"${check[@]}" "$package" >/dev/null
plant <<'END_OF_PLANTS'
sed -i "s/^Architecture: .*/Architecture: iphoneos-arm/" DEBIAN/control | Architecture is .iphoneos-arm., not .iphoneos-arm64.
sed -i "s/firmware (>= 15.0)/firmware (>= 9.0)/" DEBIAN/control   | Depends is .mobilesubstrate, preferenceloader, firmware \(>= 9.0\)
rm "$D/Panotra.plist"                                             | lacks or has otherwise: .*DynamicLibraries/Panotra.plist
mkdir -p Library; cp "$P/Panotra.png" Library                     | holds: -rw-r--r-- root/root ./Library/Panotra.png

mv var/jb/Library . && rmdir var/jb                               | lacks or has otherwise: .*var/jb/Library/MobileSubstrate/DynamicLibraries/Panotra.dylib
END_OF_PLANTS
cp "$device/arm64/Panotra.dylib" "$scratch/rootful.dylib"
plant <<<"cp '$scratch/rootful.dylib' \"\$D/Panotra.dylib\"       | holds another library than .*/rootless/Panotra.dylib"

choose doctor rootful iphoneos-arm '' "$device/arm64/PanotraDoctor.dylib"
"${check[@]}" "$package" >/dev/null
plant <<'END_OF_PLANTS'
rm "$P/PanotraDoctor.plist"                                       | lacks or has otherwise: .*Preferences/PanotraDoctor.plist
mkdir -p "$B"; cp "$P/PanotraDoctor.png" "$B"                     | holds: .*Panotra.bundle/PanotraDoctor.png
sed -i "s/firmware (>= 9.0)/&, firmware (<< 17.0)/" DEBIAN/control | Depends is .*firmware \(<< 17.0\)
END_OF_PLANTS
choose doctor rootless iphoneos-arm64 var/jb/ "$device/arm64/PanotraDoctor.dylib"
"${check[@]}" "$package" >/dev/null
plant <<<'mv var/jb/Library . && rmdir var/jb                       | lacks or has otherwise: .*var/jb/Library/MobileSubstrate/DynamicLibraries/PanotraDoctor.dylib'

conclude "plants that the check of the packages overlooks" "$failures"
