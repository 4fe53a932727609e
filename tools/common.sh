# What the commands share: installing what is missing, building quietly. Sourced with the repository as the
# working folder.

say() { printf '%s\n' "$*" >&2; }

# Runs a step whose output matters only when it fails.
quietly() {
  local name=$1 log
  shift
  log=$(mktemp)
  if ! "$@" >"$log" 2>&1; then
    cat "$log" >&2
    rm -f "$log"
    say "$name failed"
    return 1
  fi
  rm -f "$log"
}

missing_packages() {
  local package
  while read -r package; do
    dpkg-query -W -f '${db:Status-Abbrev}' "$package" 2>/dev/null | grep -q '^ii' || echo "$package"
  done <tools/packages.txt
}

install_packages() {
  local missing as_root=()
  mapfile -t missing < <(missing_packages)
  ((${#missing[@]} == 0)) && return
  if ((EUID != 0)); then
    if ! command -v sudo >/dev/null; then
      say "These packages are missing; install them as root: apt-get install ${missing[*]}"
      return 1
    fi
    as_root=(sudo)
  fi
  say "Installing ${missing[*]}"
  local install=("${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y --no-install-recommends)
  # The lists of packages are fetched only when the ones at hand do not do.
  "${install[@]}" "${missing[@]}" >/dev/null 2>&1 && return
  quietly "apt-get update" "${as_root[@]}" apt-get update
  quietly "apt-get install" "${install[@]}" "${missing[@]}"
}

# Builds a preset, or only the targets named after it; configures it first when it is new. (A build folder
# configures itself again when it must.)
build() {
  local preset=$1
  shift
  if command -v ccache >/dev/null; then
    # Precompiled headers are found in the cache only so.
    export CMAKE_CXX_COMPILER_LAUNCHER=ccache CCACHE_SLOPPINESS=pch_defines,time_macros
  fi
  [[ -f build/$preset/build.ninja ]] || quietly "Configuring $preset" cmake --preset "$preset"
  say "Building $preset"
  quietly "Building $preset" cmake --build --preset "$preset" ${1:+--target "$@"}
}

# Lets the tests have their devices in memory, where there is room: they make and delete very many files.
keep_devices_in_memory() {
  local needed=1000000 room  # KiB
  room=$(df --output=avail -k /dev/shm 2>/dev/null | tail -n 1)
  [[ -w /dev/shm ]] && ((room >= needed)) || return 0
  TMPDIR=$(mktemp -d /dev/shm/devices.XXXXXX)
  export TMPDIR
  trap 'rm -rf "$TMPDIR"' EXIT
}
