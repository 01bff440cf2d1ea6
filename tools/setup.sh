# Sourced by run and test: the packages that the project needs, and its builds.
# shellcheck shell=bash

build_packages=(cmake ninja-build g++ libftdi1-dev)
desktop_packages=(qt6-base-dev)
test_packages=(
  libgtest-dev libgmock-dev libbenchmark-dev
  clang clang-format clang-tidy libclang-rt-dev
  xvfb xauth xdotool openbox imagemagick locales
)
# Tests that miss one of these say so and count as skipped.
bench_packages=(qemu-system-x86 busybox-static cpio strace xz-utils zstd make
  python3-pyvisa python3-pyvisa-py)

# Installs those of the named packages that are missing. Asks nothing and fetches nothing when there is none.
need() {
  local missing=() package
  local -A there=()
  if ! command -v dpkg-query >/dev/null; then
    echo "This host has no dpkg: what the build needs must be there ($*)." >&2
    return
  fi
  while read -r package state; do
    [[ $state == installed ]] && there[$package]=1
  done < <(dpkg-query -W -f '${Package} ${db:Status-Status}\n' "$@" 2>/dev/null)
  for package in "$@"; do [[ ${there[$package]:-} ]] || missing+=("$package"); done
  [[ ${#missing[@]} == 0 ]] && return

  if ! command -v apt-get >/dev/null; then
    echo "This host has no apt-get. Where the build misses something, install what stands for: ${missing[*]}" >&2
    return
  fi
  local as_root=()
  if [[ $(id -u) != 0 ]]; then
    command -v sudo >/dev/null || { echo "Become root, or install these: ${missing[*]}" >&2; return 1; }
    as_root=(sudo)
  fi
  echo "Installing ${missing[*]}" >&2
  local options=(-y -q --no-install-recommends -o DPkg::Lock::Timeout=300)
  "${as_root[@]}" apt-get update -q >&2 </dev/null &&
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install "${options[@]}" "${missing[@]}" >&2 </dev/null
}

launchWithCcache() {
  if command -v ccache >/dev/null; then
    export CMAKE_CXX_COMPILER_LAUNCHER=ccache CCACHE_BASEDIR=$root CCACHE_NOHASHDIR=1
  fi
}

# Builds targets of a preset; the build's own words go to standard error.
build() {
  local preset=$1
  shift
  launchWithCcache
  (
    cd "$root" || exit 1
    # A target that this build does not have yet, for want of a package then, is there after a new configuration.
    if [[ -f build/$preset/build.ninja ]] && [[ $# -gt 0 ]] && grep -q "^build $1:" "build/$preset/build.ninja"; then
      cmake --build --preset "$preset" -j "$(nproc)" --target "$@"
    else
      cmake --preset "$preset" -D TESSARINE_UNITY=ON && cmake --build --preset "$preset" -j "$(nproc)" ${1:+--target "$@"}
    fi
  ) >&2
}
