#!/usr/bin/env bash
# Runs tests among a real sound server, and begins anew, with another server, where that server did not do what it was told
# (status 75): PipeWire, now and then, never takes the choice of an output. What the program does has no part in it.
#
#   among_servers.sh PROGRAM ARGUMENT...
set -euo pipefail
for _ in 1 2 3; do
    status=0
    "$@" || status=$?
    [[ $status -eq 75 ]] || exit "$status"
done
exit "$status"
