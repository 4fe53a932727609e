#!/bin/bash
# Runs clang-tidy on the sources that the pc build compiles; on those given alone, when any are. With --check, looks
# whether it still finds the faults planted in tools/lint/faults.cpp, by the rules for sources and by those for tests.
set -euo pipefail
cd "$(dirname "$(realpath "$0")")/.."

# The places, "LINE CHECK", at which the linter finds something by the rules in a file.
found() {
  clang-tidy-16 --config-file="$1" --quiet tools/lint/faults.cpp -- -std=c++20 -w 2>/dev/null |
    sed -n 's|^.*faults\.cpp:\([0-9]*\):.* \[\([a-z-]*\).*\]$|\1 \2|p' | sort -u
}

# The places that are marked with one of these words.
planted() {
  grep -nE "// ($1): " tools/lint/faults.cpp | sed -E 's|^([0-9]+):.*// [a-z]+: (.*)$|\1 \2|' | sort -u
}

check() {
  local rules words status=0
  for rules in '.clang-tidy everywhere|sources' 'tests/.clang-tidy everywhere'; do
    words=${rules#* }
    if ! comm -23 <(planted "$words") <(found "${rules% *}") | sed "s|^|${rules% *} does not find, at line |" | { ! grep .; }; then
      status=1
    fi
  done
  return "$status"
}

if [[ ${1-} == --check ]]; then
  check
  exit
fi
if (($# == 0)); then
  check
  mapfile -t compiled < <(sed -n 's|^ *"file": "'"$PWD"'/\(.*\.cpp\)",\{0,1\}$|\1|p' build/pc/compile_commands.json | sort -u)
  set -- "${compiled[@]}"
fi
printf '%s\n' "$@" | xargs -P "$(nproc)" -n 4 clang-tidy-16 -p build/pc --quiet --warnings-as-errors='*' \
  2> >(grep -v 'warnings generated\|^Suppressed\|^Use -header-filter' >&2)
