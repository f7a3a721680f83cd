#!/usr/bin/env bash
# The archive of the sources: what is committed and nothing else, the same bytes each time, refused where it would lie.
#
#   dist_test.sh ROOT
source "$(dirname "${BASH_SOURCE[0]}")/rooms.sh"
root=$1
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
unset GIT_DIR GIT_WORK_TREE
export GIT_CONFIG_GLOBAL=/dev/null GIT_CONFIG_SYSTEM=/dev/null

found=0
complain() {
    echo "$1" >&2
    found=$((found + 1))
}

# A checkout of three files, at another place each time.
checkout() {
    local place=$work/$1
    mkdir -p "$place/scripts"
    cp "$root/scripts/make-dist" "$place/scripts/"
    echo 'project(Panotra VERSION 7.8.9 LANGUAGES CXX)' >"$place/CMakeLists.txt"
    echo 'build/' >"$place/.gitignore"
    git -C "$place" init --quiet
    git -C "$place" add .
    GIT_AUTHOR_DATE="2001-01-01T00:00:00Z" GIT_COMMITTER_DATE="2001-01-01T00:00:00Z" git -C "$place" -c user.name=a -c user.email=a@example.org commit --quiet -m one
}

checkout first
(umask 077 && checkout second)
mkdir "$work/first/build"
touch "$work/first/build/made" "$work/first/untracked"
"$work/first/scripts/make-dist" "$work/first/build" >/dev/null || complain "a checkout is refused"
(umask 000 && TZ=Asia/Tokyo "$work/second/scripts/make-dist" "$work/elsewhere" >/dev/null) || complain "another folder is refused"
archive=panotra-7.8.9.tar.xz
cmp "$work/first/build/$archive" "$work/elsewhere/$archive" || complain "the same commit gives other bytes"

names=$(tar --list --file="$work/elsewhere/$archive" | grep -v '/$' | sort | xargs)
[[ $names == "panotra-7.8.9/.gitignore panotra-7.8.9/CMakeLists.txt panotra-7.8.9/scripts/make-dist" ]] || complain "it holds: $names"

refused() {
    local place=$1 what=$2 words status=0
    words=$("$place/scripts/make-dist" "$place/build" 2>&1) || status=$?
    [[ $status -eq 1 && $words == "make-dist: "*"$what"* ]] || complain "status $status, not refused for '$what': $words"
}
echo >>"$work/first/CMakeLists.txt"
refused "$work/first" "commit first"
rm -rf "$work/second/.git"
refused "$work/second" "no git checkout"

conclude "mistakes of the archive of the sources" "$found"
