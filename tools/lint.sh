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
# Lints sources, as many side by side as there are processors, with these options of the linter's.
lint() {
  local -a options
  while [[ $1 != -- ]]; do
    options+=("$1")
    shift
  done
  shift
  printf '%s\n' "$@" | xargs -P "$(nproc)" -n 1 clang-tidy-16 --quiet --warnings-as-errors='*' "${options[@]}" \
    2> >(grep -v 'warnings generated\|^Suppressed\|^Use -header-filter' >&2)
}

# Writes files that hold a dozen tests' files each, every one in a namespace of its own, and prints their names: nearly
# all of the linter's time goes into headers, which it then reads once for them all. The tests' files therefore open no
# namespace that has a name.
by_the_dozen() {
  local folder=build/lint number=0
  rm -rf "$folder"
  mkdir -p "$folder"
  printf '%s\n' -std=c++20 "-I$PWD" >"$folder/compile_flags.txt"
  while (($# > 0)); do
    local dozen=("${@:1:12}") file=$folder/tests_$((number++)).cpp
    shift ${#dozen[@]}
    {
      grep -hE '^#include' "${dozen[@]}" | sort -u
      for test in "${dozen[@]}"; do
        printf 'namespace %s {\n#include "%s"\n}\n' "$(basename "$test" .cpp)" "$test"
      done
    } >"$file"
    echo "$file"
  done
}

if (($# > 0)); then
  lint -p build/pc -- "$@"
  exit
fi
check
status=0
mapfile -t compiled < <(sed -n 's|^ *"file": "'"$PWD"'/\(.*\.cpp\)",\{0,1\}$|\1|p' build/pc/compile_commands.json | sort -u)
mapfile -t tests < <(printf '%s\n' "${compiled[@]}" | grep '^tests/.*_test\.cpp$')
mapfile -t others < <(printf '%s\n' "${compiled[@]}" | grep -v '^tests/.*_test\.cpp$')
mapfile -t dozens < <(by_the_dozen "${tests[@]}")
lint -p build/lint --config-file=tests/.clang-tidy -- "${dozens[@]}" || status=1
lint -p build/pc -- "${others[@]}" || status=1
exit "$status"
