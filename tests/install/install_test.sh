#!/usr/bin/env bash
# What is installed on a computer: by make install, and by the Debian package.
#
#   install_test.sh CASE BUILD SCRATCH
set -euo pipefail
case=$1 build=$2 scratch=$3
rm -rf "$scratch"
mkdir -p "$scratch"

fail() {
    echo "install_test: $1" >&2
    exit 1
}

# The program below a root draws as the one that was built does, its icons included: it finds what lies beside it.
runs() {
    local root=$1
    shift
    local options=(picture --style banner --screen 160x240@1 -o -)
    env -i PATH=/usr/bin:/bin HOME="$scratch" "$root/bin/panotra" "${options[@]}" >"$scratch/installed.png"
    env -i PATH=/usr/bin:/bin HOME="$scratch" "$build/panotra" "${options[@]}" >"$scratch/built.png"
    cmp "$scratch/installed.png" "$scratch/built.png" || fail "$root/bin/panotra draws something else than the one that was built"
    "$root/bin/panotra" play "$root/share/doc/panotra/examples/fade.scenario" >"$scratch/told"
    grep -q "mixer is gone" "$scratch/told" || fail "$root/bin/panotra does not play its examples"
    local file
    for file in "lib/panotra/panotra-graphics" "lib/panotra/panotra-desktop" "lib/panotra/Panotra.bundle/Info.plist" \
        "share/man/man1/panotra.1.gz" "share/bash-completion/completions/panotra" \
        "lib/systemd/user/panotra-desktop.service" "share/panotra/autostart/panotra-desktop.desktop" \
        "share/applications/panotra.desktop" "share/icons/hicolor/scalable/apps/panotra.svg" \
        "share/doc/panotra/copyright" "share/doc/panotra/README.md" "share/doc/panotra/docs/scenario.md" "$@"; do
        [[ -s $root/$file ]] || fail "$root/$file is missing"
    done
    # The mixer of the desktop starts with a session where somebody asks for it.
    local begun
    begun=$(find "$root" \( -path '*/xdg/autostart/*' -o -path '*.wants/*' -o -name '*.preset' \))
    [[ -z $begun ]] || fail "it starts with the session by itself: $begun"
}

the_package_runs_from_an_empty_root() {
    (cd "$scratch" && cpack --config "$build/DeskPackage.cmake" -D CPACK_DEBIAN_COMPRESSION_TYPE=gzip -B "$scratch/deb" >cpack.log 2>&1) ||
        fail "cpack: $(tail -5 "$scratch/cpack.log")"
    local package
    package=$(find "$scratch/deb" -maxdepth 1 -name 'panotra_*.deb')
    [[ $(wc -l <<<"$package") -eq 1 && -s $package ]] || fail "expected one package, found: $package"
    local depends
    depends=$(dpkg-deb --field "$package" Depends)
    [[ $depends == *libcairo2* && $depends == *libsdl2* && $depends == *libpulse0* && $depends == *fonts-inter* ]] ||
        fail "the package depends on: $depends"
    local root=$scratch/root
    mkdir -p "$root"
    if [[ $(id -u) -eq 0 ]]; then
        mkdir -p "$root/var/lib/dpkg/updates" "$root/var/lib/dpkg/info" "$root/var/lib/dpkg/triggers"
        touch "$root/var/lib/dpkg/status" "$root/var/lib/dpkg/available"
        dpkg --root="$root" --force-depends --install "$package" >"$scratch/dpkg.log" 2>&1 ||
            fail "dpkg: $(tail -5 "$scratch/dpkg.log")"
        grep -q '^Status: install ok installed' "$root/var/lib/dpkg/status" || fail "dpkg does not list the package"
    else
        dpkg-deb --extract "$package" "$root"
    fi
    runs "$root/usr" share/zsh/vendor-completions/_panotra
}

what_make_installs_runs_under_any_prefix() {
    DESTDIR=$scratch/root cmake --install "$build" --prefix /opt/mixer --component desk >"$scratch/log"
    runs "$scratch/root/opt/mixer" share/zsh/site-functions/_panotra
    # And still where somebody moves it.
    mv "$scratch/root/opt/mixer" "$scratch/moved"
    runs "$scratch/moved"
}

# The words that bash offers behind those given.
offered() {
    bash -c '
        source "$1"
        shift
        COMP_WORDS=(panotra "$@") COMP_CWORD=$#
        _panotra
        printf "%s\n" "${COMPREPLY[@]}"' offered "$build/packaging/desk/panotra.bash" "$@" | xargs
}

expect() {
    local found
    found=$(offered "${@:2}")
    [[ $found == "$1" ]] || fail "behind '${*:2}' bash offers '$found', expected '$1'"
}

shells_complete_the_command_line() {
    expect "play picture prefs" p
    expect "panel banner" picture --style ""
    expect "banner" picture --style = b
    expect "dark darker" picture --style banner --skin da
    expect "landscape-right landscape-left" picture --orientation land
    expect "--shots" play --sh
    expect "launched,announced" play --only launched,ann
    expect "set" prefs s
    expect "activeStyle" prefs set net.qorvath.panotra act
    expect "int" prefs set net.qorvath.panotra activeStyle i
    expect "" prefs set net.qorvath.panotra activeStyle int ""
    mkdir -p "$scratch/here/folder"
    touch "$scratch/here/file.scenario"
    cd "$scratch/here"
    expect "folder" play --prefs ""
    expect "file.scenario" play --prefs folder 'fi'
    zsh -n "$build/packaging/desk/_panotra" || fail "zsh does not understand its completion"
    # What the shell's own function would be given.
    zsh -fc '_arguments() { print -rl -- "$@"; state=word; }; _describe() { :; }; words=(picture)
        source "$1"' check "$build/packaging/desk/_panotra" >"$scratch/specifications"
    grep -qF -- "--style[The setting activeStyle\: 0 panel, 1 banner]:value:(panel banner)" "$scratch/specifications" ||
        fail "zsh is not told the styles: $(grep -F -- --style "$scratch/specifications")"
}

the_manual_tells_of_every_option() {
    local page=$scratch/panotra.1 command option known=0
    gzip -dc "$build/packaging/desk/panotra.1.gz" >"$page"
    local commands
    commands=$(sed -n "s/^ *:0) _panotra_words '\(.*\)' ;;$/\1/p" "$build/packaging/desk/panotra.bash")
    [[ $commands == *film* && $commands == *desktop* ]] || fail "the commands are: $commands"
    # shellcheck disable=SC2086 # a word a command, and none for the program
    for command in "" $commands; do
        for option in $("$build/panotra" $command --help | grep -oE '^  +(-[a-z],)?--[a-z-]+' | grep -oE -- '--[a-z-]+'); do
            known=$((known + 1))
            grep -qF -- "\\fB${option//-/\\-}\\fR" "$page" || fail "the manual does not know $option of '$command'"
        done
    done
    [[ $known -ge 30 ]] || fail "only $known options were found in the help"
    grep -q '^\.SH ENVIRONMENT$' "$page" || fail "the manual has no environment"
    [[ $("$build/panotra" --help) != *--manual* ]] || fail "help tells of what only packages need"
}

"${case//-/_}"
