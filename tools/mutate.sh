#!/bin/bash
# Changes the library or the simulator on purpose, one small defect at a time, and tells whether the tests find each.
set -euo pipefail

usage() {
  cat <<'END'
usage: tools/mutate.sh [--check] [TEXT]

Applies each defect listed in tools/mutations/ to a copy of the sources under build/mutants, builds that, runs the
tests that ought to find the defect until one does, and undoes it. Only the defects whose first line holds TEXT, when
one is given. Ends with a tally and status 1 when a defect was not found. --check only looks whether every defect can
be applied. It takes a second or two a defect of the library, up to half a minute one of the simulator.

A defect is written as

    What it does wrong | FILE | TESTS
    - the text that it replaces, which stands in FILE exactly once
    + the text that takes its place

with one or several lines of each; TESTS is a regular expression of test names. A blank line ends it.
END
}

check=
case ${1-} in
  -h | --help) usage; exit ;;
  --check) check=yes; shift ;;
  -*) usage >&2; exit 2 ;;
esac
wanted=${1-}

cd "$(dirname "$(realpath "$0")")/.."
source tools/common.sh
copy=$PWD/build/mutants
# Only what differs is copied, so that the copy is built again only where it must be.
while IFS= read -r path; do
  [[ ! -f $path ]] || cmp -s "$path" "$copy/$path" || install -D "$path" "$copy/$path"
done < <(git ls-files --cached --others --exclude-standard)
while IFS= read -r path; do
  [[ -f $path ]] || rm "$copy/$path"
done < <(find "$copy" -path "$copy/build" -prune -o -type f -printf '%P\n')

# Puts one text in another's place; fails unless it stands there exactly once.
replace() {
  FROM=$2 TO=$3 perl -0777 -i -pe '
    $count = () = /\Q$ENV{FROM}\E/g;
    if ($count != 1) { print STDERR "found $count times: $ENV{FROM}\n"; $failed = 1; }
    s/\Q$ENV{FROM}\E/$ENV{TO}/ unless $failed;
    END { exit($failed ? 1 : 0) }' "$1"
}

# The tests whose names a regular expression finds, as the tests' program takes them; fails when there is none.
tests_called() {
  "$copy/build/pc/sprigdial-tests" --gtest_list_tests |
    awk '/^[^ ]/ { suite = $1 } /^ / { print suite $1 }' | grep -E "$1" | paste -sd :
}

# Whether these tests pass; each processor has its share of them.
pass() {
  local shares=() share status=0
  for ((share = 0; share < $(nproc); ++share)); do
    GTEST_TOTAL_SHARDS=$(nproc) GTEST_SHARD_INDEX=$share \
      timeout 300 "$copy/build/pc/sprigdial-tests" --gtest_brief=1 --gtest_fail_fast --gtest_filter="$1" &
    shares+=($!)
  done
  for share in "${shares[@]}"; do wait "$share" || status=1; done
  return "$status"
}

found=0 missed=() broken=()

try() {
  local title=$1 file=$2 tests=$3 from=$4 to=$5 log filter targets=(package-tree)
  # What the library's defects do not reach is built once; the simulator's reach every program of it.
  [[ $file != simulator/* ]] || targets=(sprigdial-tests)
  [[ $tests != *HandingOn* ]] || targets+=(Sprigdial-unoptimised)
  [[ $tests != *Settings* ]] || targets+=(settings-probe)
  [[ $title == *"$wanted"* ]] || return 0
  if ! replace "$copy/$file" "$from" "$to"; then
    broken+=("$title")
  elif [[ -z $check ]]; then
    log=$(mktemp)
    if ! (cd "$copy" && cmake --build --preset pc --target "${targets[@]}") >"$log" 2>&1; then
      echo "refused by the compiler: $title"
      ((++found))
    elif ! filter=$(tests_called "$tests"); then
      broken+=("$title (no test is called so)")
    elif pass "$filter" >"$log" 2>&1; then
      echo "NOT FOUND: $title"
      missed+=("$title")
    else
      echo "found: $title"
      ((++found))
    fi
    rm -f "$log"
  fi
  cp "$file" "$copy/$file"
}

if [[ -z $check ]]; then
  install_packages
  (cd "$copy" && build pc)
  keep_devices_in_memory
fi

title='' file='' tests='' from='' to=''
while IFS= read -r line; do
  case $line in
    '- '*) from+=${from:+$'\n'}${line#- } ;;
    '+ '*) to+=${to:+$'\n'}${line#+ } ;;
    '+') to+=${to:+$'\n'} ;;
    '')
      if [[ -n $title ]]; then try "$title" "$file" "$tests" "$from" "$to"; fi
      title='' from='' to='' ;;
    *) IFS='|' read -r title file tests < <(sed 's/ *| */|/; s/ *| */|/2' <<<"$line") ;;
  esac
done < <(for list in tools/mutations/*.txt; do cat "$list"; echo; done)

for title in "${broken[@]}"; do echo "CANNOT BE APPLIED: $title"; done
echo "$found found, ${#missed[@]} not found, ${#broken[@]} not to be applied"
((${#missed[@]} + ${#broken[@]} == 0))
