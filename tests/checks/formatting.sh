#!/usr/bin/env bash
# Every source is formatted as .clang-format says; `make format` does it.
#
#   formatting.sh ROOT
source "$(dirname "${BASH_SOURCE[0]}")/rooms.sh"
cd "$1"
sources . | xargs -P "$(nproc)" -n 16 clang-format-14 --dry-run -Werror
echo "$(sources . | wc -l) files are formatted"
