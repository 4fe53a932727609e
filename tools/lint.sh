#!/bin/bash
# Runs clang-tidy on the sources that the pc build compiles; on those given alone, when any are.
set -euo pipefail
cd "$(dirname "$(realpath "$0")")/.."
if (($# == 0)); then
  mapfile -t compiled < <(sed -n 's|^ *"file": "'"$PWD"'/\(.*\.cpp\)",\{0,1\}$|\1|p' build/pc/compile_commands.json | sort -u)
  set -- "${compiled[@]}"
fi
printf '%s\n' "$@" | xargs -P "$(nproc)" -n 4 clang-tidy-16 -p build/pc --quiet --warnings-as-errors='*' \
  2> >(grep -v 'warnings generated\|^Suppressed\|^Use -header-filter' >&2)
