#!/usr/bin/env bash
# Runs tests among a real sound server, and begins anew, with another server, where that server did not do what it was told
# within half a minute (status 75), which standard error then tells: the choice of an output, above all, is a matter
# between PipeWire and WirePlumber in which the program under test has no part. What the program does wrong ends a test
# with another status, and is not tried again.
#
#   among_servers.sh PROGRAM ARGUMENT...
set -euo pipefail
for _ in 1 2 3; do
    status=0
    "$@" || status=$?
    [[ $status -eq 75 ]] || exit "$status"
done
exit "$status"
