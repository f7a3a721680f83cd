#!/usr/bin/env bash
# The installation script among commands that only pretend: nothing is installed here.
#
#   install_dependencies_test.sh ROOT
source "$(dirname "${BASH_SOURCE[0]}")/rooms.sh"
script=$1/scripts/install-dependencies

scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
export scratch
failures=0

pretend() {
    printf '#!/bin/bash\n%s\n' "$2" >"$scratch/bin/$1"
    chmod +x "$scratch/bin/$1"
}

# A machine of root's on which cmake alone is installed.
machine() {
    rm -rf "${scratch:?}"/*
    mkdir "$scratch/bin"
    local command
    for command in bash cut echo env grep sed sort xargs; do
        ln -s "$(type -P "$command")" "$scratch/bin/$command"
    done
    pretend id 'echo 0'
    pretend dpkg-query '[[ ${!#} == cmake ]] && echo -n installed'
    pretend apt-get 'echo "apt-get $*" >>"$scratch/calls"'
    touch "$scratch/calls"
}

# Runs the script for the groups; expects a status.
run() {
    local expected=$1 status=0
    shift
    PATH=$scratch/bin "$scratch/bin/bash" "$script" "$@" >"$scratch/output" 2>"$scratch/errors" || status=$?
    [[ $status -eq $expected ]] || fail "$*: status $status, expected $expected"
}

fail() {
    echo "$what: $1" >&2
    cat "$scratch/output" "$scratch/errors" "$scratch/calls" >&2
    failures=$((failures + 1))
}
expect() { grep -qE -- "$2" "$scratch/$1" || fail "'$2' expected in the $1"; }
expect_none() { [[ ! -s $scratch/$1 ]] || fail "no $1 expected"; }

what="nothing is missing"
machine
pretend dpkg-query 'echo -n installed'
run 0 build test run
expect_none output
expect_none errors
expect_none calls

what="something is missing"
machine
run 0 build
expect output '^  libexpat1-dev +Expat, reads property lists$'
expect calls '^apt-get .*install --yes --no-install-recommends .*libexpat1-dev'
grep -qw cmake "$scratch/calls" && fail "cmake is there already"
grep -q update "$scratch/calls" && fail "the lists at hand would have done"

what="the lists of packages are old"
machine
pretend apt-get 'echo "apt-get $*" >>"$scratch/calls"; [[ $* == *update* ]] || grep -q update "$scratch/calls"'
run 0 build
[[ $(grep -c install "$scratch/calls") -eq 2 ]] || fail "a second attempt expected after the update"

what="apt-get fails"
machine
pretend apt-get 'exit 100'
run 1 build
expect errors 'could not install: .*libexpat1-dev'

what="an ordinary user with sudo"
machine
pretend id 'echo 1000'
pretend sudo 'echo "sudo $*" >>"$scratch/calls"; "$@"'
run 0 build
expect calls '^sudo env DEBIAN_FRONTEND=noninteractive apt-get'

what="an ordinary user without sudo"
machine
pretend id 'echo 1000'
run 1 build
expect errors 'neither root nor sudo'
expect_none calls

what="no Debian"
machine
rm "$scratch/bin/apt-get" "$scratch/bin/dpkg-query"
run 1 build
expect errors 'no Debian: install the like of .*libexpat1-dev'

what="an unknown group"
machine
run 2 biuld
expect errors "no group 'biuld'; there are: arm64 bench build"
expect_none calls

what="a list"
machine
run 0 --list fetched-arm64 build
expect output '^libexpat1$'
expect output '^clang-19$'
expect_none errors
expect_none calls
run 2 --list biuld

what="the compilers of the fuzzers"
machine
run 0 --list fuzz
[[ $(grep -oE '^(clang|g\+\+)-[0-9]+' "$scratch/output" | sort) == "$(grep -ohE '(clang|g)\+\+-[0-9]+' \
    "$1/scripts/fuzz" | sed 's/clang++/clang/' | sort -u)" ]] || fail "other compilers than scripts/fuzz calls"

# Runs ./run with words; make comes with its package, and says what it was asked for.
run_anything() {
    ln -s "$(type -P dirname)" "$(type -P chmod)" "$scratch/bin"
    pretend apt-get 'echo "apt-get $*" >>"$scratch/calls"
        echo "echo made \$*" >"$scratch/bin/make"; chmod +x "$scratch/bin/make"'
    script=$1/run run 0 "${@:2}"
}

what="no make"
machine
run_anything "$1"
expect output '^  make +runs '
expect output '^made run$'
expect calls '^apt-get .*install .* make$'

what="make is there"
machine
pretend make 'echo "make $*"'
run_anything "$1" window test
expect output '^make window test$'
expect_none calls

what="what the README has people run"
machine
run_anything "$1" help
targets=$(sed -nE 's|^    \./run ?([a-z-]*).*|\1|p' "$1/README.md")
[[ $(wc -l <<<"$targets") -ge 2 ]] || fail "no commands found"
for target in $targets; do
    grep -q "^$target:" "$1/Makefile" || fail "no target $target"
done
! grep -nE '^    make' "$1/README.md" >"$scratch/errors" || fail "a machine that is new has no make"

what="a group that is fetched, not installed"
machine
run 2 fetched-device
expect errors "'fetched-device' are fetched"
expect_none calls

conclude "mistakes of the installation script" "$failures"
