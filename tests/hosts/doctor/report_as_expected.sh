#!/usr/bin/env bash
# The doctor's report of a process of some system is the expected one.
#
#   report_as_expected.sh PROGRAM SYSTEM DOCTOR EXPECTED [OPTION...]
#
# PROGRAM is panotra-doctor-host, which takes the options; EXPECTED a file of the text. With PANOTRA_ACCEPT=yes in the
# environment the file is written instead. Version and processor are not compared.
set -euo pipefail
program=$1 system=$2 doctor=$3 expected=$4
found=$("$program" "$system" "$doctor" "${@:5}" | sed "s/^architecture: .*/architecture: PROCESSOR/; s/^Panotra doctor .*/Panotra doctor VERSION/")
if [[ ${PANOTRA_ACCEPT-} == yes ]]; then
    echo "$found" >"$expected"
else
    diff "$expected" <(echo "$found")
fi
