#!/usr/bin/env bash
# The check of the package must find every kind of violation: each is planted in a copy of the real one.
#
#   package_violations.sh ROOT DEVICE
#
# DEVICE is the folder that scripts/build-device filled.
source "$(dirname "${BASH_SOURCE[0]}")/../checks/rooms.sh"
root=$1 device=$2
package=$(realpath "$device"/*.deb)
version=$(dpkg-deb --field "$package" Version)

scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
failures=0

# What is done in the unpacked package | what the check must say about it. Paths: D the folder of the library, B of the
# pictures, P of the settings page.
plants='
sed -i "s/^Architecture: .*/Architecture: all/" DEBIAN/control    | Architecture is .all., not .iphoneos-arm.
sed -i "s/, firmware (>= 9.0)//" DEBIAN/control                   | Depends is .mobilesubstrate, preferenceloader.
sed -i "s/^Version: .*/Version: 9.9/" DEBIAN/control              | Version is .9.9.
sed -i "/^Installed-Size/d" DEBIAN/control                        | has no Installed-Size
printf "#!/bin/sh\n" >DEBIAN/postinst; chmod 755 DEBIAN/postinst  | brings more than a control file
rm "$D/Panotra.plist"                                             | lacks or has otherwise: .*DynamicLibraries/Panotra.plist
echo nothing >"$D/README"                                         | holds: .*DynamicLibraries/README
chmod 777 "$D"                                                    | holds: drwxrwxrwx .*DynamicLibraries
chmod 644 "$D/Panotra.dylib"                                      | lacks or has otherwise: -rwxr-xr-x .*Panotra.dylib
chmod 755 "$P/Panotra.plist"                                      | holds: -rwxr-xr-x .*Preferences/Panotra.plist
touch --date=@5 "$B/siri.png"                                     | holds files of different times
sed -i "s/<dict>/<dct>/" "$P/Panotra.plist"                       | Preferences/Panotra.plist is no property list
sed -i "s/com.apple.springboard/com.apple.UIKit/" "$D/Panotra.plist" | is loaded into: com.apple.UIKit
rm "$B/alarm@3x.png"                                              | lacks or has otherwise: .*alarm@3x.png
cp "$B/alarm.png" "$B/alarm@2x.png"                               | alarm@2x.png is not twice as wide
cp "$B/alarm@2x.png" "$B/alarm@3x.png"                            | alarm@3x.png is not thrice as wide
echo nothing >"$B/ringer.png"                                     | ringer.png is no picture
'

expect_refused() {
    local what=$1 expected=$2 file=$3
    if "$root/packaging/checks/check-package" "$version" "$file" >"$scratch/said" 2>&1 ||
        ! grep -qE -- "$expected" "$scratch/said"; then
        echo "not found: $what" >&2
        cat "$scratch/said" >&2
        failures=$((failures + 1))
    fi
}

while IFS='|' read -r action expected; do
    [[ -n $action ]] || continue
    read -r expected <<<"$expected"
    rm -rf "$scratch/tree"
    dpkg-deb --raw-extract "$package" "$scratch/tree"
    (
        cd "$scratch/tree"
        D=Library/MobileSubstrate/DynamicLibraries B=Library/PreferenceBundles/Panotra.bundle \
            P=Library/PreferenceLoader/Preferences bash -c "$action"
    )
    dpkg-deb --root-owner-group -Zgzip --build "$scratch/tree" "$scratch/$(basename "$package")" >/dev/null
    expect_refused "$action" "$expected" "$scratch/$(basename "$package")"
done <<<"$plants"

dpkg-deb --root-owner-group -Zxz --build "$scratch/tree" "$scratch/$(basename "$package")" >/dev/null
expect_refused "another compression" 'is not packed with gzip' "$scratch/$(basename "$package")"

# With another owner, which needs no rights in an archive that is packed by hand.
mkdir "$scratch/archive"
(
    cd "$scratch/archive"
    ar x "$package"
    mkdir data
    tar --extract --gzip --file data.tar.gz --directory data
    tar --create --gzip --owner daemon:1 --group daemon:1 --file data.tar.gz --directory data .
    rm "$scratch/$(basename "$package")"
    ar qc "$scratch/$(basename "$package")" debian-binary control.tar.gz data.tar.gz
)
expect_refused "another owner" 'holds: .* daemon/daemon .*siri.png' "$scratch/$(basename "$package")"

cp "$package" "$scratch/panotra.deb"
expect_refused "another name" 'has the wrong name' "$scratch/panotra.deb"

conclude "plants that the check of the package overlooks" "$failures"
